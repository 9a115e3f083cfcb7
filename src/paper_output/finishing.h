// Staples, holes and folds: what each choice does to the others, and the words for what is chosen.
//
// A group of staples that is 1 has none; folds and punches that are 1 are none.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "foundation/bundle.h"
#include "foundation/string.h"
#include "paper_output/stock/stock.h"

namespace kalmo {

inline constexpr SInt32 kNoFinishing = 1;
inline constexpr SInt32 kFoldC = 19, kFoldZ = 20, kFoldZHalfSheet = 36, kFoldBi = 43,
                        kFoldBiStaple = 53;
/// Values of Finishing::option.
inline constexpr SInt32 kOptionNone = 0, kOptionSingleStaple = 4, kOptionDualStaple = 9,
                        kOptionBooklet = 24, kOptionPunch = 30, kOptionFold = 40,
                        kOptionMultipleStaples = 53, kOptionCoilPunch = 58;

/// Commands of the finishing menu and of the controls that stand in for its items.
inline constexpr UInt32 kNoStapleCommand = 'Stp0', kSingleStapleCommand = 'Stp1',
                        kDualStapleCommand = 'Stp2', kMultipleStaplesCommand = 'Stp4',
                        kNoPunchCommand = 'Hpn0', kPunchCommand = 'HPun', kPunch2Command = 'Hpn2',
                        kPunch3Command = 'Hpn3', kPunch4Command = 'Hpn4', kNoFoldCommand = 'Fld0',
                        kCFoldCommand = 'Cfld', kZFoldCommand = 'Zfld',
                        kZFoldHalfSheetCommand = 'Zfol', kBiFoldCommand = 'Bfld',
                        kBookletCommand = 'Bkcr', kCoilCommand = 'Coil';

/// Values of _KLStapleMap, _KLFoldMap, _KLPunchMap, _RequestOffsetMap and _SlipSheetMap. What the
/// ticket and the printer say nothing about stays 0 where no other start is given.
struct Finishing {
    SInt32 option = kOptionNone;
    SInt32 singleStaple = kNoFinishing, dualStaple = kNoFinishing, multipleStaple = kNoFinishing;
    SInt32 fold = 0, bind = 0, punch = 0;
    SInt32 offset = 1, offsetSubsetEnabled = 0, offsetPagesPerSubset = 1;
    SInt32 slipSheet = 0;
    Owned<CFStringRef> custom;  // null: none
    bool coilPunch = false, squareFold = false, squareFoldTrim = false, squareFoldAllowed = true;
};

/// Whether the printer has at least one of the installable options.
[[nodiscard]] bool AnyInstalled(std::initializer_list<CFStringRef> features);

/// The printer's finishing devices, by their installable options.
struct FinishingDevices {
    bool hasStapler = false, hasPuncher = false, hasFolder = false;
};
[[nodiscard]] FinishingDevices InstalledFinishingDevices();

/// What a command other than kBookletCommand does; `value` is the item's. False when it is none.
bool ApplyFinishingCommand(Finishing* finishing, UInt32 command, SInt32 value);
/// What choosing a value in the popup of all staples does.
void ChooseStaple(Finishing* finishing, SInt32 value);
/// The command that a fold of the printer acts as; 0 for a value that is no fold.
[[nodiscard]] UInt32 CommandForFold(SInt32 fold);
/// Splits and joins the one value of "StapleLocation".
void SetStapleLocation(Finishing* finishing, SInt32 location);
[[nodiscard]] SInt32 StapleLocation(const Finishing& finishing);

/// Whether the menu marks the item. `bookletLayout`: booklet mode is on.
[[nodiscard]] bool IsFinishingMarked(const Finishing& finishing, bool bookletLayout, UInt32 command,
                                     SInt32 value);
/// Keys of the summary's lines, in order.
[[nodiscard]] std::vector<CFStringRef> FinishingSummaryKeys(const Finishing& finishing,
                                                            bool bookletLayout,
                                                            const FinishingDevices& devices);
/// The lines themselves, each "- " before its text and a line's end after it. The caller releases
/// it.
[[nodiscard]] CFStringRef CreateFinishingString(CFBundleRef bundle, const Finishing& finishing,
                                                bool bookletLayout,
                                                const FinishingDevices& devices);
/// Null when there is none for the value.
[[nodiscard]] const char* StaplePicture(SInt32 staple);
[[nodiscard]] const char* PunchPicture(SInt32 punch);
[[nodiscard]] std::string FinishingPicture(const Finishing& finishing, bool bookletLayout);

/// Whether coil punch can be had on the paper. Nothing: the printer has none, or the stock says
/// neither type nor weight.
[[nodiscard]] std::optional<bool> CoilPunchAvailable(const Stock& stock);
void TakeAwayCoilPunch(Finishing* finishing);
/// Papers that are too stiff or too slippery for a square fold clear it. True when it changed.
bool CoupleSquareFold(Finishing* finishing, const Stock& stock);

}  // namespace kalmo
