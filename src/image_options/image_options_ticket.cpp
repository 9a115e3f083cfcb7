#include "image_options/image_options_panel.h"
#include "settings/ppd_choices.h"

namespace kalmo {
namespace {

OSStatus WriteChoice(PMTicketRef ticket, CFStringRef keyword, SInt32 value) {
    if (ticket != kPMNoTicket)
        PPDSetCurrentChoice(ticket, keyword, PPDChoiceForTicketValue(keyword, value));
    return noErr;
}

OSStatus ReadChoice(PPDRef ppd, PMTicketRef ticket, CFStringRef keyword, SInt32* value) {
    if (ticket != kPMNoTicket) PPDGetTicketValueForChoiceOrDefault(ppd, ticket, keyword, value);
    return noErr;
}

}  // namespace

OSStatus SyncTonerSaverToTicket(ImageOptionsContext& context, PMTicketRef ticket) {
    return WriteChoice(ticket, CFSTR("KLEconomode"), context.tonerSaver);
}

OSStatus SyncTonerSaverToUI(ImageOptionsContext& context, PMTicketRef ticket) {
    return ReadChoice(context.ppd, ticket, CFSTR("KLEconomode"), &context.tonerSaver);
}

OSStatus SyncResolutionToTicket(ImageOptionsContext& context, PMTicketRef ticket) {
    return WriteChoice(ticket, CFSTR("Resolution"), context.resolution);
}

OSStatus SyncResolutionToUI(ImageOptionsContext& context, PMTicketRef ticket) {
    return ReadChoice(context.ppd, ticket, CFSTR("Resolution"), &context.resolution);
}

OSStatus SyncLightenDarkenToTicket(ImageOptionsContext&, PMTicketRef) { return noErr; }

OSStatus SyncLightenDarkenToUI(ImageOptionsContext&, PMTicketRef) { return noErr; }

}  // namespace kalmo
