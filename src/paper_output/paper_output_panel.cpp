#include "paper_output/paper_output_panel.h"

#include "controls/panel_operations.h"
#include "paper_output/booklet_dialog.h"
#include "paper_output/job_setup.h"
#include "paper_output/print_check.h"
#include "shell/base/texts.h"
#include "watermark/booklet_service.h"

namespace kalmo {
namespace {

void StartWithDefaultStocks(_PaperOutputContext& context) {
    DefaultStock(&context.record.jobStock, JobContext::job);
    DefaultStock(&context.record.separators.stock, JobContext::job);
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
    CoupleFinishing(context);
    SyncCovers(ticket, kSyncToUI, &context.record.frontCover, &context.record.backCover);
    return noErr;
}

OSStatus WriteTicket(_PaperOutputContext& context, PMTicketRef ticket) {
    const auto popup = context.controls.sides ? SidesPopup::exists : SidesPopup::missing;
    const OSStatus status = WritePaperOutput(context.record, ticket, popup);
    SyncCovers(ticket, kSyncToTicket, &context.record.frontCover, &context.record.backCover);
    return status;
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
        // Written at once: another panel may be shown, and this one is read before it is written.
        .runFaxSetup =
            [&context] {
                RunJobSetup(context);
                WriteTicket(context, PrintSettingsOf(context));
            },
    });
}

/// What the dialog changed is written at once, as above.
void InstallBooklet(_PaperOutputContext& context) {
    InstallBookletService({.run =
                               [&context] {
                                   RunBookletCommand(context);
                                   WriteTicket(context, PrintSettingsOf(context));
                               },
                           .state =
                               [&context] {
                                   return BookletStateOf(context.record.finishing.fold,
                                                         context.record.bookletIsOn());
                               }});
}

void Initialize(_PaperOutputContext& context) {
    context.record.job.savedJobName = DocumentName(context);
    // Every dialog starts without a booklet, whatever the ticket says.
    WriteBookletLayout(PrintSettingsOf(context), false);
    InstallCheck(context);
    InstallBooklet(context);
}

/// What Close took away is made again.
void OpenAgain(_PaperOutputContext& context) {
    MakeSummaryViews(context);
    ShowPaperOutput(context);
}

void Finish(_PaperOutputContext& context) {
    InstallPrintCheckSource({});
    InstallBookletService({});
    FinalizeStockMenuButton(context.controls.stockMenu, &context.stockMenu);
    RemoveEventHandler(context.handler);
    RemoveEventHandler(context.drawHandler);
}

constexpr PanelParts<_PaperOutputContext> kParts = {
    .titleKey = "PaperOutput",
    .start = StartWithDefaultStocks,
    .initialize = Initialize,
    .read = ReadTicket,
    .write = WriteTicket,
    .build = BuildPaperOutputControls,
    .openAgain = OpenAgain,
    .close = DisposeSummaryViews,
    .finish = Finish,
};

}  // namespace

PMTicketRef PrintSettingsOf(const _PaperOutputContext& context) {
    PMTicketRef ticket = kPMNoTicket;
    GetTicketFromSession(context.session, kPMPrintSettingsTicket, &ticket);
    return ticket;
}

}  // namespace kalmo

extern "C" OSStatus GetPaperOutputPanelInterface(PDEInterfaceObject** out) {
    return kalmo::CreatePanel<kalmo::_PaperOutputContext, kalmo::kParts>(out);
}
