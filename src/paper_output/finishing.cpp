#include "paper_output/finishing.h"

#include <algorithm>
#include <iterator>

#include "settings/installable_options.h"

namespace kalmo {
namespace {

using Field = SInt32 Finishing::*;

constexpr SInt32 kNone = kNoFinishing;
constexpr SInt32 kFour = 54;  // staples
// What a command may do to a field besides setting it to a number.
constexpr SInt32 kKeep = -1;  // leaves it
constexpr SInt32 kItem = -2;  // gives it the item's value

/// `shown` is the field that marks the item when it has the item's value; null: a rule of its own.
struct CommandRow {
    UInt32 command;
    Field shown;
    SInt32 option, singleStaple, dualStaple, multipleStaple, punch, fold;
};

constexpr Field kSingle = &Finishing::singleStaple, kDual = &Finishing::dualStaple,
                kMultiple = &Finishing::multipleStaple, kPunch = &Finishing::punch,
                kFold = &Finishing::fold;

// clang-format off
constexpr CommandRow kCommands[] = {
    // command                shown      option                  one    two    four   punch  fold
    {kNoStapleCommand,        nullptr,   kKeep,                  kNone, kNone, kNone, kKeep, kKeep},
    {kSingleStapleCommand,    kSingle,   kOptionSingleStaple,    kItem, kNone, kNone, kKeep, kNone},
    {kDualStapleCommand,      kDual,     kOptionDualStaple,      kNone, kItem, kNone, kKeep, kNone},
    {kMultipleStaplesCommand, kMultiple, kOptionMultipleStaples, kNone, kNone, kFour, kNone, kNone},
    {kNoPunchCommand,         kPunch,    kKeep,                  kKeep, kKeep, kKeep, kItem, kKeep},
    {kPunchCommand,           kPunch,    kOptionPunch,           kKeep, kKeep, kNone, kItem, kNone},
    {kPunch2Command,          kPunch,    kOptionPunch,           kKeep, kKeep, kNone, kItem, kNone},
    {kPunch3Command,          kPunch,    kOptionPunch,           kKeep, kKeep, kNone, kItem, kNone},
    {kPunch4Command,          kPunch,    kOptionPunch,           kKeep, kKeep, kNone, kItem, kNone},
    {kCoilCommand,            nullptr,   kOptionCoilPunch,       kKeep, kKeep, kNone, kNone, kNone},
    {kNoFoldCommand,          kFold,     kKeep,                  kKeep, kKeep, kKeep, kKeep, kItem},
    {kCFoldCommand,           kFold,     kOptionFold,            kNone, kNone, kNone, kNone, kItem},
    {kZFoldCommand,           kFold,     kOptionFold,            kNone, kNone, kNone, kNone, kItem},
    {kZFoldHalfSheetCommand,  kFold,     kOptionFold,            kNone, kNone, kNone, kNone, kItem},
    {kBiFoldCommand,          kFold,     kOptionFold,            kNone, kNone, kNone, kNone, kItem},
};
// clang-format on

const CommandRow* RowOf(UInt32 command) {
    const auto* const row = std::ranges::find(kCommands, command, &CommandRow::command);
    return row == std::end(kCommands) ? nullptr : row;
}

void Change(SInt32* field, SInt32 change, SInt32 item) {
    if (change != kKeep) *field = change == kItem ? item : change;
}

constexpr struct {
    SInt32 fold;
    UInt32 command;
} kFoldCommands[] = {
    {kNone, kNoFoldCommand},   {kFoldC, kCFoldCommand},
    {kFoldZ, kZFoldCommand},   {kFoldZHalfSheet, kZFoldHalfSheetCommand},
    {kFoldBi, kBiFoldCommand}, {kFoldBiStaple, kBiFoldCommand},
};

/// Values that belong to one group of staples; bounds included.
struct StapleRange {
    SInt32 first, last;
    Field group;
};
constexpr StapleRange kStapleLocations[] = {{5, 8, kSingle}, {10, 13, kDual}, {54, 57, kMultiple}};
constexpr StapleRange kStapleChoices[] = {
    {5, 6, kSingle}, {10, 10, kDual}, {12, 12, kDual}, {kFour, kFour, kMultiple}};

void RemoveStaples(Finishing* finishing) {
    for (const Field group : {kSingle, kDual, kMultiple}) finishing->*group = kNone;
}

template <std::size_t Count>
void SetStaple(Finishing* finishing, const StapleRange (&ranges)[Count], SInt32 value) {
    RemoveStaples(finishing);
    for (const auto& [first, last, group] : ranges)
        if (first <= value && value <= last) finishing->*group = value;
}

// Weights in g/m².
constexpr SInt32 kLightestCoiled = 80, kTooHeavyToCoil = 217;
// Taken for granted where a stock does not tell.
constexpr SInt32 kAssumedType = 0, kAssumedWeight = 80;

// 4 and 5 are in no menu; stored tickets may name them.
constexpr SInt32 kTypesNeverSquareFolded[] = {kStockTypeLabels, kStockTypeTransparency,
                                              kStockTypePrecutTab, 5};

}  // namespace

bool AnyInstalled(std::initializer_list<CFStringRef> features) {
    return std::ranges::any_of(features, getInstalledFeature);
}

FinishingDevices InstalledFinishingDevices() {
    return {.hasStapler = AnyInstalled(
                {CFSTR("SingleStapleKey"), CFSTR("DualStapleKey"), CFSTR("MultipleStapleKey")}),
            .hasPuncher = AnyInstalled({CFSTR("GenericPunchKey"), CFSTR("DualPunchKey"),
                                        CFSTR("TriplePunchKey"), CFSTR("QuadruplePunchKey")}),
            .hasFolder = getInstalledFeature(CFSTR("BookletFoldKey"))};
}

bool ApplyFinishingCommand(Finishing* finishing, UInt32 command, SInt32 value) {
    const CommandRow* row = RowOf(command);
    if (!row) return false;
    Change(&finishing->option, row->option, value);
    Change(&finishing->singleStaple, row->singleStaple, value);
    Change(&finishing->dualStaple, row->dualStaple, value);
    Change(&finishing->multipleStaple, row->multipleStaple, value);
    Change(&finishing->punch, row->punch, value);
    Change(&finishing->fold, row->fold, value);
    // Coil punch is one of the punches: what settles the others settles it too.
    if (row->punch != kKeep) finishing->coilPunch = command == kCoilCommand;
    return true;
}

void ChooseStaple(Finishing* finishing, SInt32 value) {
    SetStaple(finishing, kStapleChoices, value);
}

UInt32 CommandForFold(SInt32 fold) {
    for (const auto& row : kFoldCommands)
        if (row.fold == fold) return row.command;
    return 0;
}

void SetStapleLocation(Finishing* finishing, SInt32 location) {
    SetStaple(finishing, kStapleLocations, location);
}

SInt32 StapleLocation(const Finishing& finishing) {
    for (const Field group : {kSingle, kDual})
        if (finishing.*group != kNone) return finishing.*group;
    return finishing.multipleStaple;
}

bool IsFinishingMarked(const Finishing& finishing, bool bookletLayout, UInt32 command,
                       SInt32 value) {
    if (bookletLayout || finishing.option == kOptionBooklet) return command == kBookletCommand;
    if (command == kNoStapleCommand) return StapleLocation(finishing) == kNone;
    if (command == kCoilCommand) return finishing.coilPunch;
    const CommandRow* row = RowOf(command);
    return row && finishing.*row->shown == value;
}

std::optional<bool> CoilPunchAvailable(const Stock& stock) {
    const bool tells = stock.type() != kUnset || stock.weight() != kUnset;
    if (!tells || !getInstalledFeature(CFSTR("GBCAdvancedPunchKey"))) return std::nullopt;
    const SInt32 type = stock.type() == kUnset ? kAssumedType : stock.type();
    const SInt32 weight = stock.weight() == kUnset ? kAssumedWeight : stock.weight();
    return type != kStockTypeLabels && type != kStockTypeTransparency &&
           weight >= kLightestCoiled && weight < kTooHeavyToCoil;
}

void TakeAwayCoilPunch(Finishing* finishing) {
    finishing->coilPunch = false;
    if (finishing->option == kOptionCoilPunch) finishing->option = kOptionNone;
}

bool CoupleSquareFold(Finishing* finishing, const Stock& stock) {
    if (stock.type() == kUnset || !getInstalledFeature(CFSTR("SquareFoldTrimmerKey"))) return false;
    const bool wasChosen = finishing->squareFold || finishing->squareFoldTrim;
    const bool wasAllowed = finishing->squareFoldAllowed;
    finishing->squareFoldAllowed = std::ranges::find(kTypesNeverSquareFolded, stock.type()) ==
                                   std::end(kTypesNeverSquareFolded);
    if (!finishing->squareFoldAllowed) finishing->squareFold = finishing->squareFoldTrim = false;
    return wasAllowed != finishing->squareFoldAllowed ||
           (wasChosen && !finishing->squareFoldAllowed);
}

}  // namespace kalmo
