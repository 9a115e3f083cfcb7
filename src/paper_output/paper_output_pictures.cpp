// The preview pictures: which file shows a value, and which words say the same.
#include <string>

#include "controls/pictures.h"
#include "paper_output/paper_output_panel.h"
#include "paper_output/stock/stock_summary.h"
#include "settings/setting_map.h"
#include "settings/setting_maps.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

struct PictureOfValue {
    SInt32 value;
    const char* file;
};

template <std::size_t Count>
std::string PictureOf(const PictureOfValue (&rows)[Count], SInt32 value) {
    for (const PictureOfValue& row : rows)
        if (row.value == value) return row.file;
    return {};
}

constexpr PictureOfValue kJobTypePictures[] = {
    {kJobTypeNormal, "JobType_NormalPrint.gif"},
    {kJobTypeHold, "JobType_HoldJob.gif"},
    {kJobTypeSaved, "JobType_SavedJob.gif"},
    {kJobTypeFax, "JobType_Fax.gif"},
    {kJobTypeSecurePrint, "JobType_SecurePrint.gif"},
    {kJobTypeDelayed, "JobType_DelayPrint.gif"},
    {kJobTypeSampleSet, "JobType_SampleSet.gif"},
    {kJobTypeBackgroundForm, "JobType_BackgroundForm.gif"},
};

constexpr PictureOfValue kSidesPictures[] = {
    {kOneSided, "2SidedPrinting_1Sided.gif"},
    {kTwoSidedLongEdge, "2SidedPrinting_2Sided.gif"},
    {kTwoSidedShortEdge, "2SidedPrinting_2SidedFlip.gif"},
};

constexpr SInt32 kGrayscale = 1, kColor = 2;
constexpr PictureOfValue kOutputColorPictures[] = {
    {kColor, "OutputColor_Color.gif"},
    {kGrayscale, "OutputColor_BlackandWhite.gif"},
};

/// Trays that stand out from the printer, and those that stack; the others are the usual one.
constexpr PictureOfValue kOutputBinPictures[] = {
    {2, "OutputTray_Face.gif"},     {3, "OutputTray_Face.gif"},     {5, "OutputTray_Face.gif"},
    {18, "OutputTray_Face.gif"},    {26, "OutputTray_Face.gif"},    {27, "OutputTray_Face.gif"},
    {4, "OutputTray_Stacker.gif"},  {7, "OutputTray_Stacker.gif"},  {11, "OutputTray_Stacker.gif"},
    {13, "OutputTray_Stacker.gif"}, {14, "OutputTray_Stacker.gif"}, {15, "OutputTray_Stacker.gif"},
    {16, "OutputTray_Stacker.gif"}, {17, "OutputTray_Stacker.gif"}, {23, "OutputTray_Stacker.gif"},
};

std::string JobTypePicture(const _PaperOutputContext& context) {
    return PictureOf(kJobTypePictures, context.record.job.jobType);
}

std::string JobStockPicture(const _PaperOutputContext& context) {
    return StockPicture(context.record.jobStock);
}

/// A booklet is printed on its short edge, but reads like a book: the plain two-sided picture.
std::string SidesPicture(const _PaperOutputContext& context) {
    return context.record.bookletIsOn() ? "2SidedPrinting_2Sided.gif"
                                        : PictureOf(kSidesPictures, context.record.duplex);
}

std::string TextOrNone(const char* file) { return file ? file : ""; }

std::string PopupStaplePicture(const _PaperOutputContext& context) {
    return TextOrNone(StaplePicture(StapleLocation(context.record.finishing)));
}

std::string PopupPunchPicture(const _PaperOutputContext& context) {
    return TextOrNone(PunchPicture(context.record.finishing.punch));
}

/// The fold alone: what else is chosen has controls and pictures of its own.
std::string PopupFoldPicture(const _PaperOutputContext& context) {
    Finishing foldAlone;
    foldAlone.fold = context.record.finishing.fold;
    const std::string file = FinishingPicture(foldAlone, context.record.bookletIsOn());
    return file == FinishingPicture(Finishing(), context.record.bookletIsOn()) ? "" : file;
}

std::string OutputColorPicture(const _PaperOutputContext& context) {
    const std::string file = PictureOf(kOutputColorPictures, context.outputColor);
    return file.empty() ? "OutputColor_PrnDef.gif" : file;
}

std::string OutputBinPicture(const _PaperOutputContext& context) {
    const std::string file = PictureOf(kOutputBinPictures, context.record.outputBin);
    return file.empty() ? "OutputTray_Default.gif" : file;
}

/// A fold that has a popup of its own has its picture there.
std::string MenuFinishingPicture(const _PaperOutputContext& context) {
    Finishing shown = context.record.finishing;
    if (context.controls.fold) shown.fold = kNoFinishing;
    return FinishingPicture(shown, context.record.bookletIsOn());
}

Owned<CFStringRef> Empty() { return Owned<CFStringRef>::Retain(CFSTR("")); }

Owned<CFStringRef> TitleOf(ControlRef control) {
    return control ? Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(control)) : Empty();
}

Owned<CFStringRef> ChosenTextOf(ControlRef popup) {
    const MenuRef menu = GetControlPopupMenu(popup);
    const SInt32 item = GetControl32BitValue(popup);
    if (!menu || item < 1) return Empty();
    return Owned<CFStringRef>::Adopt(CopyMenuItemTextAsCFString(menu, static_cast<UInt16>(item)));
}

/// A picture says what the control or the summary beside it says.
struct PictureRow {
    ControlRef PaperOutputControls::*picture;
    std::string (*file)(const _PaperOutputContext&);
    Owned<CFStringRef> (*words)(const _PaperOutputContext&);
};

template <ControlRef PaperOutputControls::*popup>
Owned<CFStringRef> PopupWords(const _PaperOutputContext& context) {
    return ChosenTextOf(context.controls.*popup);
}

Owned<CFStringRef> StockWords(const _PaperOutputContext& context) {
    return TitleOf(context.stockSummary.text);
}

Owned<CFStringRef> FinishingWords(const _PaperOutputContext& context) {
    return TitleOf(context.finishingSummary.text);
}

Owned<CFStringRef> OutputColorWords(const _PaperOutputContext& context) {
    return TitleOf(context.controls.outputColor);
}

using Controls = PaperOutputControls;
constexpr PictureRow kPictures[] = {
    {&Controls::jobTypePicture, JobTypePicture, PopupWords<&Controls::jobType>},
    {&Controls::stockPicture, JobStockPicture, StockWords},
    {&Controls::sidesPicture, SidesPicture, PopupWords<&Controls::sides>},
    {&Controls::staplePicture, PopupStaplePicture, PopupWords<&Controls::staple>},
    {&Controls::punchPicture, PopupPunchPicture, PopupWords<&Controls::punch>},
    {&Controls::foldPicture, PopupFoldPicture, PopupWords<&Controls::fold>},
    {&Controls::outputColorPicture, OutputColorPicture, OutputColorWords},
    {&Controls::outputBinPicture, OutputBinPicture, PopupWords<&Controls::outputBin>},
    {&Controls::finishingPicture, MenuFinishingPicture, FinishingWords},
};

}  // namespace

void DescribePictures(_PaperOutputContext& context) {
    for (const PictureRow& row : kPictures) {
        const ControlRef picture = context.controls.*row.picture;
        if (!picture) continue;
        SetControlAccessibleDescription(picture, row.words(context));
        SetControlNeedsDisplay(picture);
    }
}

OSStatus pdeShellPaperOutputDrawIconEventHandler(EventHandlerCallRef, EventRef event,
                                                 void* userData) {
    return WithoutExceptions(eventNotHandledErr, [&]() -> OSStatus {
        const auto& context = *static_cast<_PaperOutputContext*>(userData);
        for (const PictureRow& row : kPictures) {
            const ControlRef picture = context.controls.*row.picture;
            if (!picture || picture != GetEventControl(event)) continue;
            const std::string file = row.file(context);
            return file.empty() ? eventNotHandledErr
                                : DrawImage(event, CFStringMakeConstant(file.c_str()));
        }
        return eventNotHandledErr;
    });
}

}  // namespace kalmo
