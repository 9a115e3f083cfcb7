// Job notes between ticket and record.
#include "job_notes/job_notes_panel.h"
#include "printing/ticket.h"
#include "settings/ticket_keys.h"
#include "system/system.h"

namespace kalmo {
namespace {

using Context = _JobNotesContext;

constexpr struct {
    const char* key;
    Owned<CFStringRef> Context::*text;
} kMessages[] = {
    {"com.kalmo.print.JobNotesMessage", &Context::jobStartMessage},
    {"com.kalmo.print.JobNotesSheetMessage", &Context::bannerMessage},
    {"com.kalmo.print.JobNotesAdditionalInfo", &Context::additionalInfo},
};

constexpr struct {
    const char* flagKey;
    bool Context::*usesItem;
    const char* nameKey;
    Owned<CFStringRef> Context::*name;
} kNames[] = {
    {"com.kalmo.print.JobNotesUseJobName", &Context::useJobName, "com.kalmo.print.JobNotesJobName",
     &Context::jobName},
    {"com.kalmo.print.JobNotesSenderUseLoginName", &Context::senderUseLoginName,
     "com.kalmo.print.JobNotesSenderName", &Context::senderName},
    {"com.kalmo.print.JobNotesRecipientUseLoginName", &Context::recipientUseLoginName,
     "com.kalmo.print.JobNotesRecipient", &Context::recipientName},
};

void WriteText(PMTicketRef ticket, const char* key, CFStringRef text) {
    PMTicketSetCFString(ticket, kPrintingManagerCreator, CFStringMakeConstant(key), text, false);
}

/// Empty when the ticket has no such text.
Owned<CFStringRef> TextInTicket(PMTicketRef ticket, const char* key) {
    CFStringRef text = CFSTR("");
    PMTicketGetCFString(ticket, CFStringMakeConstant(key), &text);
    return Owned<CFStringRef>::Retain(text);
}

/// True when the ticket has no such flag.
bool UsesItemInTicket(PMTicketRef ticket, const char* key) {
    CFBooleanRef flag = kCFBooleanTrue;
    PMTicketGetCFBoolean(ticket, CFStringMakeConstant(key), &flag);
    return CFBooleanGetValue(flag);
}

void WriteMessages(const Context& context, PMTicketRef ticket) {
    for (const auto& row : kMessages) {
        if (CFStringGetLength(context.*row.text) > 0) {
            WriteText(ticket, row.key, context.*row.text);
        } else {
            PMTicketReleaseItem(ticket, CFStringMakeConstant(row.key));
        }
    }
}

Owned<CFStringRef> CopyLoginName() {
    auto name = Owned<CFStringRef>::Adopt(CopyConsoleUser());
    return name ? name : Context::NoText();
}

/// Whether the typed names or the login name are written is decided for all three by the box of the
/// job's name, and not by each name's own (kept as it is). What the user chose for each of them
/// travels in its flag.
void WriteNames(const Context& context, PMTicketRef ticket) {
    const auto loginName = CopyLoginName();
    for (const auto& row : kNames) {
        PMTicketSetCFBoolean(ticket, kPrintingManagerCreator, CFStringMakeConstant(row.flagKey),
                             context.*row.usesItem ? kCFBooleanTrue : kCFBooleanFalse, false);
        WriteText(ticket, row.nameKey, context.useJobName ? loginName : context.*row.name);
    }
}

}  // namespace

OSStatus WriteJobNotes(Context& context, PMTicketRef ticket) {
    UpdateJobNotesContext(context);
    WriteMessages(context, ticket);
    WriteNames(context, ticket);
    return noErr;
}

OSStatus ReadJobNotes(Context& context, PMTicketRef ticket) {
    for (const auto& row : kMessages) context.*row.text = TextInTicket(ticket, row.key);
    for (const auto& row : kNames) {
        context.*row.usesItem = UsesItemInTicket(ticket, row.flagKey);
        context.*row.name =
            context.*row.usesItem ? Context::NoText() : TextInTicket(ticket, row.nameKey);
    }
    UpdateJobNotesEditFields(context);
    return noErr;
}

}  // namespace kalmo
