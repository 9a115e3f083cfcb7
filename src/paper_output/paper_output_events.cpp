// What the user does to the panel's controls.
#include "paper_output/booklet_dialog.h"
#include "paper_output/finishing_menu.h"
#include "paper_output/job_setup.h"
#include "paper_output/paper_output_panel.h"
#include "settings/ppd_choices.h"
#include "settings/setting_menus.h"
#include "toolbox/windows.h"

namespace kalmo {
namespace {

void ChooseJobType(_PaperOutputContext& context) {
    context.record.job.jobType = GetPopupButtonTicketValue(context.controls.jobType);
    EnableDisableJobTypeSetupButton(&context);
    DescribePictures(context);
    // A type that needs to be set up is set up at once.
    if (IsControlEnabled(context.controls.jobSetup)) RunJobSetup(context);
}

void SetUpSeparators(_PaperOutputContext& context) {
    if (RunModalSeparatorsDialog(context.bundle, &context.record.separators) == kModalOK)
        ShowStock(context);
}

void ChooseSides(_PaperOutputContext& context) {
    context.record.duplex = GetPopupButtonTicketValue(context.controls.sides);
    DescribePictures(context);
}

void ChooseStapleInPopup(_PaperOutputContext& context) {
    ChooseStaple(&context.record.finishing, GetPopupButtonTicketValue(context.controls.staple));
    ShowFinishing(context);
}

void ChoosePunchInPopup(_PaperOutputContext& context) {
    context.record.finishing.punch = GetPopupButtonTicketValue(context.controls.punch);
    ShowFinishing(context);
}

void RunFinishingCommand(_PaperOutputContext& context, UInt32 command, SInt32 value) {
    if (command == kBookletCommand) {
        RunBookletCommand(context);
    } else {
        UnselectBooklet(&context);
        ApplyFinishingCommand(&context.record.finishing, command, value);
    }
    ShowFinishing(context);
}

void ChooseFoldInPopup(_PaperOutputContext& context) {
    const SInt32 fold = GetPopupButtonTicketValue(context.controls.fold);
    if (const UInt32 command = CommandForFold(fold)) RunFinishingCommand(context, command, fold);
}

void ChooseOutputBin(_PaperOutputContext& context) {
    context.record.outputBin = GetPopupButtonTicketValue(context.controls.outputBin);
    DescribePictures(context);
}

constexpr struct {
    ControlRef PaperOutputControls::*control;
    void (*act)(_PaperOutputContext& context);
} kHits[] = {
    {&PaperOutputControls::jobType, ChooseJobType},
    {&PaperOutputControls::jobSetup, RunJobSetup},
    {&PaperOutputControls::separators, SetUpSeparators},
    {&PaperOutputControls::sides, ChooseSides},
    {&PaperOutputControls::staple, ChooseStapleInPopup},
    {&PaperOutputControls::punch, ChoosePunchInPopup},
    {&PaperOutputControls::fold, ChooseFoldInPopup},
    {&PaperOutputControls::outputBin, ChooseOutputBin},
};

void HandleHit(_PaperOutputContext& context, ControlRef control) {
    for (const auto& row : kHits)
        if (control && context.controls.*row.control == control) return row.act(context);
}

void HandleCommand(_PaperOutputContext& context, EventRef event) {
    MenuRef menu = nullptr;
    UInt16 item = 0;
    if (GetEventControl(event) != context.controls.finishingMenu ||
        !GetEventMenuItem(event, &menu, &item) || !IsMenuItemEnabled(menu, item))
        return;
    ItemReference value = 0;
    GetMenuItemRefCon(menu, item, &value);
    RunFinishingCommand(context, GetEventCommand(event), static_cast<SInt32>(value));
}

/// The layout switch, and with it the pair of covers that follows from it.
void WriteLayout(_PaperOutputContext& context, PMTicketRef ticket, bool on) {
    WriteBookletLayout(ticket, on);
    SyncCovers(ticket, kSyncToUI, &context.record.frontCover, &context.record.backCover);
}

SInt32 DuplexInTicket(const _PaperOutputContext& context, PMTicketRef ticket) {
    SInt32 duplex = context.record.duplex;
    PPDGetTicketValueForChoiceOrDefault(context.ppd, ticket, CFSTR("Duplex"), &duplex);
    return duplex;
}

}  // namespace

void EnableDisableJobTypeSetupButton(_PaperOutputContext* context) {
    if (HasJobSetup(context->record.job.jobType)) {
        EnableControl(context->controls.jobSetup);
    } else {
        DisableControl(context->controls.jobSetup);
    }
}

void UnselectBooklet(_PaperOutputContext* context) {
    const bool wasOn = context->record.bookletIsOn();
    LeaveBooklet(&context->record);
    // The ticket must not say on while the panel says off.
    if (wasOn) WriteLayout(*context, PrintSettingsOf(*context), false);
    ShowSides(*context);
}

void RunBookletCommand(_PaperOutputContext& context) {
    PaperOutputRecord& record = context.record;
    BookletChoice choice{.booklet = record.booklet, .fold = record.finishing.fold};
    if (RunModalBookletDialog(context.bundle, context.ppd, &choice) != kModalOK) return;
    const PMTicketRef ticket = PrintSettingsOf(context);
    // What the popup says and no Sync has written yet is what a later "off" shall restore.
    if (!record.bookletIsOn()) {
        PPDSetCurrentChoice(ticket, CFSTR("Duplex"),
                            PPDChoiceForTicketValue(CFSTR("Duplex"), record.duplex));
    }
    ApplyBookletChoice(&record, choice, DuplexInTicket(context, ticket));
    WriteLayout(context, ticket, record.bookletIsOn());
    ShowSides(context);
    ShowFinishing(context);
}

void CoupleFinishing(_PaperOutputContext& context) {
    PaperOutputRecord& record = context.record;
    const MenuRef menu = GetControlPopupMenu(context.controls.finishingMenu);
    const bool coil = CoupleCoilPunch(menu, &record.finishing, record.jobStock);
    const bool square = CoupleSquareFold(&record.finishing, record.jobStock);
    if (coil || square) ShowFinishing(context);
}

OSStatus pdeShellPaperOutputEventHandler(EventHandlerCallRef, EventRef event, void* userData) {
    return WithoutExceptions(eventNotHandledErr, [&] {
        auto& context = *static_cast<_PaperOutputContext*>(userData);
        CoupleFinishing(context);
        if (GetEventClass(event) == kEventClassControl) {
            HandleHit(context, GetEventControl(event));
        } else {
            HandleCommand(context, event);
        }
        return eventNotHandledErr;
    });
}

}  // namespace kalmo
