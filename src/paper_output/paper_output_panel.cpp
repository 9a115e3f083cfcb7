#include "paper_output/paper_output_panel.h"

#include <new>

#include "paper_output/job_setup.h"
#include "paper_output/print_check.h"
#include "settings/ticket.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

_PaperOutputContext* Context(PDEContext context) {
    return static_cast<_PaperOutputContext*>(context);
}

OSStatus _Prologue(PDEContext* context, OSType* creator, CFStringRef* kind, CFStringRef* title,
                   UInt32* maximumWidth, UInt32* maximumHeight) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        auto* made = new (std::nothrow) _PaperOutputContext;
        *context = made;
        if (!made) return kPMInvalidPDEContext;
        DefaultStock(&made->record.jobStock, JobContext::job);
        DefaultStock(&made->record.separators.stock, JobContext::job);
        AnswerPanelPrologue(*made, CFSTR("PaperOutput"), creator, kind, title, maximumWidth,
                            maximumHeight);
        return noErr;
    });
}

PaperOutputTickets TicketsOf(const _PaperOutputContext& context, PMTicketRef settings) {
    PaperOutputTickets tickets{.ppd = context.ppd, .settings = settings};
    GetTicketFromSession(context.session, kPMPageFormatTicket, &tickets.pageFormat);
    return tickets;
}

OSStatus ReadTicket(_PaperOutputContext& context, PMTicketRef ticket) {
    ReadPaperOutput(&context.record, TicketsOf(context, ticket));
    PPDGetTicketValueForChoiceOrDefault(context.ppd, ticket, CFSTR("KLColorMode"),
                                        &context.outputColor);
    ShowPaperOutput(context);
    SyncCovers(ticket, kSyncToUI, &context.record.frontCover, &context.record.backCover);
    return noErr;
}

OSStatus WriteTicket(_PaperOutputContext& context, PMTicketRef ticket) {
    const auto popup = context.controls.sides ? SidesPopup::exists : SidesPopup::missing;
    const OSStatus status = WritePaperOutput(context.record, ticket, popup);
    SyncCovers(ticket, kSyncToTicket, &context.record.frontCover, &context.record.backCover);
    return status;
}

OSStatus _Sync(PDEContext context, PMPrintSession session, Boolean direction) {
    return WithoutExceptions(kPMInvalidPrintSession, [&]() -> OSStatus {
        if (!session || !context) return kPMInvalidPrintSession;
        PMTicketRef ticket = kPMNoTicket;
        const OSStatus status = GetTicketFromSession(session, kPMPrintSettingsTicket, &ticket);
        if (status != noErr) return status;
        Context(context)->session = session;
        return direction == kSyncToTicket ? WriteTicket(*Context(context), ticket)
                                          : ReadTicket(*Context(context), ticket);
    });
}

Owned<CFStringRef> DocumentName(const _PaperOutputContext& context) {
    CFStringRef name = nullptr;
    PMTicketGetCFString(PrintSettingsOf(context), CFSTR("com.apple.print.JobInfo.PMJobName"),
                        &name);
    return name ? Owned<CFStringRef>::Retain(name) : CopyText(context.bundle, CFSTR("Unknown"));
}

/// The check looks at the record as it is when Print is pressed.
void InstallCheck(_PaperOutputContext& context) {
    InstallPrintCheckSource({
        .job =
            [&context] {
                const PaperOutputRecord& record = context.record;
                return CheckedJob{
                    .jobType = record.job.jobType,
                    .passcode = record.job.securePassword,
                    .faxRecipientCount = record.faxRecipients ? record.faxRecipients->count() : 0};
            },
        .runFaxSetup = [&context] { RunJobSetup(context); },
    });
}

OSStatus _Initialize(PDEContext context, UInt32*, void*, ControlRef pane, PMPrintSession session) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        if (!session || !context) return kPMInvalidPDEContext;
        _PaperOutputContext& panel = *Context(context);
        panel.pane = pane;
        panel.session = session;
        panel.ppd = PPDGetCurrent();
        panel.record.job.savedJobName = DocumentName(panel);
        // Every dialog starts without a booklet, whatever the ticket says.
        WriteBookletLayout(PrintSettingsOf(panel), false);
        InstallCheck(panel);
        return _Sync(context, session, kSyncToUI);
    });
}

OSStatus _GetSummaryText(PDEContext context, CFArrayRef* titles, CFArrayRef* values) {
    *titles = nullptr;
    *values = nullptr;
    return context ? noErr : kPMInvalidPDEContext;
}

/// A later Open answers as every panel does, but first makes again what Close took away.
OSStatus OpenAgain(_PaperOutputContext& context) {
    MakeSummaryViews(context);
    ShowPaperOutput(context);
    return kPMInvalidPDEContext;
}

OSStatus _Open(PDEContext context) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        if (!context) return kPMInvalidPDEContext;
        return Context(context)->opened ? OpenAgain(*Context(context))
                                        : BuildPaperOutputControls(*Context(context));
    });
}

OSStatus _Close(PDEContext context) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        if (!context) return kPMInvalidPDEContext;
        DisposeSummaryViews(*Context(context));
        return noErr;
    });
}

OSStatus _Terminate(PDEContext context, OSStatus) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        if (!context) return kPMInvalidPDEContext;
        _PaperOutputContext& panel = *Context(context);
        InstallPrintCheckSource({});
        FinalizeStockMenuButton(panel.controls.stockMenu, &panel.stockMenu);
        RemoveEventHandler(panel.handler);
        RemoveEventHandler(panel.drawHandler);
        delete &panel;
        return noErr;
    });
}

}  // namespace

PMTicketRef PrintSettingsOf(const _PaperOutputContext& context) {
    PMTicketRef ticket = kPMNoTicket;
    GetTicketFromSession(context.session, kPMPrintSettingsTicket, &ticket);
    return ticket;
}

}  // namespace kalmo

extern "C" OSStatus GetPaperOutputPanelInterface(PDEInterfaceObject** out) {
    return kalmo::CreatePanelInterface({.Prologue = kalmo::_Prologue,
                                        .Initialize = kalmo::_Initialize,
                                        .Sync = kalmo::_Sync,
                                        .GetSummaryText = kalmo::_GetSummaryText,
                                        .Open = kalmo::_Open,
                                        .Close = kalmo::_Close,
                                        .Terminate = kalmo::_Terminate},
                                       out);
}
