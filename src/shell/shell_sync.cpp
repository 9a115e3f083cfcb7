#include "shell/shell_sync.h"

#include "paper_output/print_check.h"
#include "settings/ppd_access.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "shell/base/current_session.h"
#include "shell/base/panel_interface.h"
#include "shell/client_information.h"

namespace kalmo {
namespace {

void SyncPanels(PDEShellContext& shell, PMPrintSession session, Boolean direction) {
    const auto sync = [&](bool shownLast) {
        ForEachPanel(shell, [&](PanelRecord& panel) {
            if ((panel.tabIndex == lastTabIndex) == shownLast)
                panel.operations.Sync(panel.context, session, direction);
        });
    };
    sync(false);
    sync(true);
}

/// A fax has no colour.
void SetBlackAndWhiteForFax(PMTicketRef ticket) {
    CFDictionaryRef job = nullptr;
    CFIndex type = 0;
    if (PMTicketGetCFDictionary(ticket, kJobTypeKey, &job) == noErr &&
        GetCFIndexFromCFDictionary(job, CFSTR("JobType"), &type) && type == kJobTypeFax)
        PPDSetCurrentChoice(ticket, CFSTR("KLMColor"), CFSTR("BW"));
}

}  // namespace

OSStatus PDEShell::Sync(PDEContext context, PMPrintSession session, Boolean direction) {
    return WithoutExceptions(kPMInvalidPrintSession, [&]() -> OSStatus {
        const OSStatus status = KalmoPDESync(context, session, direction);
        if (!session || !context) return kPMInvalidPrintSession;
        SyncPanels(*static_cast<PDEShellContext*>(context), session, direction);
        if (direction != kSyncToTicket) return status;
        PMTicketRef ticket = kPMNoTicket;
        const OSStatus read = GetTicketFromSession(session, kPMPrintSettingsTicket, &ticket);
        if (read != noErr) return read;
        WriteClientInformation(ticket, CollectClientFacts());
        SetBlackAndWhiteForFax(ticket);
        return status;
    });
}

}  // namespace kalmo

extern "C" OSStatus PDESync(PMPrintSession, Boolean direction) {
    return kalmo::PDEShell::Sync(kalmo::gContext, GetCurrentPrintSession(), direction);
}
