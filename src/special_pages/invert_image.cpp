#include "special_pages/invert_image.h"

#include "kalmo/pde.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "special_pages/ticket_flags.h"

namespace kalmo {
namespace {

OSStatus EmbedByID(SInt32 id, WindowRef window, ControlRef pane, ControlRef* control) {
    const OSStatus status = GetControlByID(window, {'KPDE', id}, control);
    return status == noErr ? EmbedControl(*control, pane) : status;
}

OSStatus WriteToTicket(const InvertImageContext& context, II_Options* options, PMTicketRef ticket) {
    // A box that exists sets its flag, whatever it shows, and none is ever cleared: kept as it is,
    // for controllers take the dictionary of a dialog with these boxes as a request.
    if (context.negative) options->NegativeImage = true;
    if (context.mirror) options->MirrorImage = true;
    const auto dictionary =
        Owned<CFDictionaryRef>::Adopt(InvertImageCreateTicketFromOptions(*options));
    return PMTicketSetCFDictionary(ticket, kTicketCreator, kInvertImageOptionsKey, dictionary,
                                   false);
}

OSStatus ReadFromTicket(const InvertImageContext& context, II_Options* options,
                        PMTicketRef ticket) {
    CFDictionaryRef dictionary = nullptr;
    const OSStatus status = PMTicketGetCFDictionary(ticket, kInvertImageOptionsKey, &dictionary);
    InvertImageSetOptionsFromTicket(dictionary, options);
    SetControl32BitValue(context.negative, options->NegativeImage);
    SetControl32BitValue(context.mirror, options->MirrorImage);
    return status == kPMKeyNotFound ? noErr : status;
}

}  // namespace

void InvertImageInitialize(InvertImageContext* context, II_Options* options) {
    *context = {};
    *options = {.valid = true};
}

OSStatus InvertImageOpen(InvertImageContext* context, WindowRef window, ControlRef pane) {
    const OSStatus statuses[] = {EmbedByID(910, window, pane, &context->group),
                                 EmbedByID(911, window, pane, &context->negative),
                                 EmbedByID(912, window, pane, &context->mirror)};
    for (const OSStatus status : statuses)
        if (status != noErr) return status;
    return noErr;
}

void InvertImageTerminate(InvertImageContext* context) {
    for (const ControlRef control : {context->mirror, context->negative, context->group})
        DisposeControl(control);
    *context = {};
}

CFDictionaryRef InvertImageCreateTicketFromOptions(const II_Options& options) {
    const CFMutableDictionaryRef dictionary = CFDictionaryCreateMutable(kCFAllocatorDefault, 0);
    WriteTicketValue(dictionary, CFSTR("NegativeImage"), options.NegativeImage ? 1 : 0);
    WriteTicketValue(dictionary, CFSTR("MirrorImage"), options.MirrorImage ? 1 : 0);
    return dictionary;
}

void InvertImageSetOptionsFromTicket(CFDictionaryRef dictionary, II_Options* options) {
    options->NegativeImage = FlagInDictionary(dictionary, CFSTR("NegativeImage"), false);
    options->MirrorImage = FlagInDictionary(dictionary, CFSTR("MirrorImage"), false);
    options->valid = true;
}

OSStatus InvertImageSync(const InvertImageContext& context, II_Options* options, Boolean direction,
                         PMTicketRef ticket) {
    return direction == kSyncToTicket ? WriteToTicket(context, options, ticket)
                                      : ReadFromTicket(context, options, ticket);
}

}  // namespace kalmo
