// The panel's controls: which of them the printer has something for, and how they show the record.
#include <iterator>

#include "controls/panel_layout.h"
#include "paper_output/finishing_menu.h"
#include "paper_output/paper_output_panel.h"
#include "paper_output/stock/stock_summary.h"
#include "settings/ppd_choices.h"
#include "settings/ppd_menus.h"
#include "settings/setting_maps.h"
#include "settings/setting_menus.h"
#include "toolbox/windows.h"

namespace kalmo {
namespace {

using Controls = PaperOutputControls;

bool Always(const _PaperOutputContext&) { return true; }
bool HasPapers(const _PaperOutputContext& context) {
    return PPDOffersChoices(context.ppd, CFSTR("MediaColor")) ||
           PPDOffersChoices(context.ppd, CFSTR("MediaType"));
}
bool HasSides(const _PaperOutputContext& context) {
    return PPDOffersChoices(context.ppd, CFSTR("Duplex"));
}
bool HasOutputColor(const _PaperOutputContext& context) {
    return PPDOffersChoices(context.ppd, CFSTR("KLColorMode"));
}
bool HasOutputBin(const _PaperOutputContext& context) {
    return PPDOffersChoices(context.ppd, CFSTR("OutputBin"));
}

// What the finishing menu offers has no second control.
bool HasFinishingMenu(const _PaperOutputContext&) { return OfficeFinishing().any(); }
bool HasStaplePopup(const _PaperOutputContext& context) {
    return PPDOffersChoices(context.ppd, CFSTR("StapleLocation")) && !OfficeFinishing().staple;
}
bool HasPunchPopup(const _PaperOutputContext& context) {
    return PPDOffersChoices(context.ppd, CFSTR("KLPunch")) && !OfficeFinishing().punch;
}
bool HasFoldPopup(const _PaperOutputContext& context) {
    return PPDOffersChoices(context.ppd, CFSTR("KLFold")) && !OfficeFinishing().fold;
}

/// From top to bottom.
constexpr struct {
    SInt32 id;
    bool (*isOffered)(const _PaperOutputContext&);
} kSections[] = {
    {1000, Always},           {1100, HasPapers},      {1200, HasSides},
    {1300, HasFinishingMenu}, {1400, HasStaplePopup}, {1500, HasPunchPopup},
    {1600, HasFoldPopup},     {1700, HasOutputColor}, {1800, HasOutputBin},
};

/// Their texts stand in the interface file, by key.
constexpr struct {
    SInt32 id;
    ControlRef Controls::*control;
} kControls[] = {
    {102, &Controls::jobType},
    {103, &Controls::jobSetup},
    {104, &Controls::jobTypePicture},
    {106, &Controls::stockMenu},
    {107, &Controls::stockPicture},
    {108, &Controls::separators},
    {109, &Controls::stockSummaryPlace},
    {110, &Controls::sides},
    {111, &Controls::sidesPicture},
    {113, &Controls::staple},
    {114, &Controls::staplePicture},
    {116, &Controls::punch},
    {117, &Controls::punchPicture},
    {119, &Controls::fold},
    {120, &Controls::foldPicture},
    {122, &Controls::outputColor},
    {123, &Controls::outputColorPicture},
    {126, &Controls::outputBin},
    {127, &Controls::outputBinPicture},
    {128, &Controls::finishingMenu},
    {129, &Controls::finishingPicture},
    {130, &Controls::finishingSummaryPlace},
};

std::vector<SInt32> OfferedSections(const _PaperOutputContext& context) {
    std::vector<SInt32> offered;
    for (const auto& section : kSections)
        if (section.isOffered(context)) offered.push_back(section.id);
    return offered;
}

/// Two panels may use one number: only what stands in this panel's pane counts.
void FindControls(_PaperOutputContext& context) {
    const WindowRef window = GetControlOwner(context.pane);
    for (const auto& row : kControls)
        GetControlByID(window, {'KPpo', row.id}, &(context.controls.*row.control));
}

/// With the choices that installed devices allow; all of them where the PPD's defaults contradict
/// themselves and would leave none.
SInt32 FillFromPPD(ControlRef popup, PPDRef ppd, CFStringRef keyword) {
    const SInt32 items = PPDPopulatePopupWithChoices(popup, ppd, keyword, Constraints::respect);
    return items > 0 ? items
                     : PPDPopulatePopupWithChoices(popup, ppd, keyword, Constraints::ignore);
}

/// A value that the menu lacks shows nothing rather than another value.
void ShowChoice(ControlRef popup, SInt32 value) {
    SetControl32BitMinimum(popup, 0);
    SetControl32BitValue(popup, 0);
    SetPopupButtonToTicketValue(popup, value);
}

void FillMenus(_PaperOutputContext& context) {
    const Controls& controls = context.controls;
    PopulatePopupButtonFromMap(context.bundle, controls.jobType, JobTypeMap, JobContext::job, 0);
    FillFromPPD(controls.sides, context.ppd, CFSTR("Duplex"));
    FillFromPPD(controls.staple, context.ppd, CFSTR("StapleLocation"));
    FillFromPPD(controls.punch, context.ppd, CFSTR("KLPunch"));
    FillFromPPD(controls.fold, context.ppd, CFSTR("KLFold"));
    PopulateOutputDestination(controls.outputBin, context.ppd);
    if (const MenuRef menu = GetControlPopupMenu(controls.finishingMenu))
        PopulateOfficeFinishingMenu(menu, context.bundle);
}

void SetUpStockMenu(_PaperOutputContext& context) {
    context.stockMenu.bundle = context.bundle;
    context.stockMenu.ppd = context.ppd;
    context.stockMenu.stock = &context.record.jobStock;
    context.stockMenu.changed = [&context] {
        CoupleFinishing(context);
        ShowStock(context);
    };
    if (context.controls.stockMenu)
        InitializeStockMenuButton(context.controls.stockMenu, &context.stockMenu);
}

/// On the pane: the events of all controls in it pass there.
void InstallHandlers(_PaperOutputContext& context) {
    constexpr EventTypeSpec kActions[] = {{kEventClassControl, kEventControlHit},
                                          {kEventClassCommand, kEventCommandProcess}};
    constexpr EventTypeSpec kDrawing[] = {{kEventClassControl, kEventControlDraw}};
    InstallControlEventHandler(context.pane, pdeShellPaperOutputEventHandler, std::size(kActions),
                               kActions, &context, &context.handler);
    InstallControlEventHandler(context.pane, pdeShellPaperOutputDrawIconEventHandler,
                               std::size(kDrawing), kDrawing, &context, &context.drawHandler);
}

void MakeSummaryView(SummaryView& view, ControlRef place) {
    if (!place || view.text) return;
    if (CreateStaticTextControl(GetControlOwner(place), view.bounds, CFSTR(""), &view.text) !=
        noErr)
        return;
    EmbedControl(view.text, place);
}

void DisposeSummaryView(SummaryView& view) {
    if (!view.text) return;
    GetControlBounds(view.text, &view.bounds);
    DisposeControl(view.text);
    view.text = nullptr;
}

void ShowVisible(ControlRef control, bool visible) {
    visible ? ShowControl(control) : HideControl(control);
}

void ShowOutputColor(_PaperOutputContext& context) {
    const CFStringRef choice = PPDChoiceForTicketValue(CFSTR("KLColorMode"), context.outputColor);
    const auto text =
        Owned<CFStringRef>::Adopt(PPDCopyChoiceText(context.ppd, CFSTR("KLColorMode"), choice));
    SetControlTitleWithCFString(context.controls.outputColor, text ? text.get() : CFSTR(""));
}

}  // namespace

OSStatus BuildPaperOutputControls(_PaperOutputContext& context) {
    const PanelSource source{context.bundle, CFSTR("PaperOutputPanel"), CFSTR("Window")};
    const OSStatus status = AppendSections(context.pane, source, OfferedSections(context));
    if (status != noErr) return status;
    context.record.devices = InstalledFinishingDevices();
    FindControls(context);
    FillMenus(context);
    MakeSummaryViews(context);
    SetUpStockMenu(context);
    InstallHandlers(context);
    context.opened = true;
    // The shell may ask for the values before it has sent any: then they are the record's own.
    ShowPaperOutput(context);
    CoupleFinishing(context);
    return noErr;
}

void MakeSummaryViews(_PaperOutputContext& context) {
    MakeSummaryView(context.stockSummary, context.controls.stockSummaryPlace);
    MakeSummaryView(context.finishingSummary, context.controls.finishingSummaryPlace);
}

void DisposeSummaryViews(_PaperOutputContext& context) {
    DisposeSummaryView(context.stockSummary);
    DisposeSummaryView(context.finishingSummary);
}

SInt32 PopulateOutputDestination(ControlRef popup, PPDRef ppd) {
    return FillFromPPD(popup, ppd, CFSTR("OutputBin"));
}

void ShowPaperOutput(_PaperOutputContext& context) {
    if (!context.opened) return;
    ShowJobType(context);
    ShowStock(context);
    ShowSides(context);
    ShowChoice(context.controls.outputBin, context.record.outputBin);
    ShowOutputColor(context);
    ShowFinishing(context);
}

void ShowJobType(_PaperOutputContext& context) {
    if (!context.opened) return;
    ShowChoice(context.controls.jobType, context.record.job.jobType);
    EnableDisableJobTypeSetupButton(&context);
    DescribePictures(context);
}

void ShowStock(_PaperOutputContext& context) {
    if (!context.opened) return;
    const PaperOutputRecord& record = context.record;
    const ControlRef summary = context.stockSummary.text;
    const bool isTransparency = record.jobStock.type() == kStockTypeTransparency;
    if (summary) {
        ShowStockSummary(context.bundle, summary, &record.jobStock, JobContext::job);
        if (isTransparency) {
            AppendSeparatorSummary(summary, context.bundle, record.separators.option,
                                   record.separators.stock);
        }
    }
    ShowVisible(context.controls.separators, isTransparency);
    DescribePictures(context);
}

void ShowSides(_PaperOutputContext& context) {
    if (!context.opened) return;
    const ControlRef sides = context.controls.sides;
    // A booklet is printed on the short edge, and shown as the two-sided print that it becomes.
    const bool booklet = context.record.bookletIsOn();
    ShowChoice(sides, booklet ? kTwoSidedLongEdge : context.record.duplex);
    booklet ? DisableControl(sides) : EnableControl(sides);
    DescribePictures(context);
}

void ShowFinishing(_PaperOutputContext& context) {
    if (!context.opened) return;
    const Finishing& finishing = context.record.finishing;
    const Controls& controls = context.controls;
    const bool booklet = context.record.bookletIsOn();
    if (const MenuRef menu = GetControlPopupMenu(controls.finishingMenu))
        MarkFinishingMenu(menu, finishing, booklet);
    if (context.finishingSummary.text) {
        const auto text = Owned<CFStringRef>::Adopt(
            CreateFinishingString(context.bundle, finishing, booklet, context.record.devices));
        SetControlTitleWithCFString(context.finishingSummary.text, text);
    }
    ShowChoice(controls.staple, StapleLocation(finishing));
    ShowChoice(controls.punch, finishing.punch);
    ShowChoice(controls.fold, finishing.fold);
    DescribePictures(context);
}

}  // namespace kalmo
