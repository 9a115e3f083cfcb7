#include "image_options/advanced_panel.h"

#include "controls/panel_operations.h"
#include "settings/ppd_choices.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"

#define kBookletOrderKey CFSTR("com.kalmo.print.AdvancedBookletLayoutOrderStr")
#define kRotateKey CFSTR("com.kalmo.print.AdvancedRotateImage180")

namespace kalmo {
namespace {

constexpr SInt32 kDefaultRotate = 1;

struct ChoiceRow {
    const char* keyword;
    SInt32 _AdvancedContext::*value;
};
constexpr ChoiceRow kChoices[] = {
    {"KLOutputOption", &_AdvancedContext::outputOption},
    {"JCLBanner", &_AdvancedContext::banner},
    {"Jog", &_AdvancedContext::offset},
};

OSStatus WriteNumber(PMTicketRef ticket, CFStringRef key, CFIndex number) {
    return PMTicketSetCFIndex(ticket, kPrintingManagerCreator, key, number, false);
}

/// The rotation is written less one whatever it is (kept as it is: printers count the popup's
/// positions from 0), so a number that was only read goes down by one each time.
OSStatus WriteTicket(_AdvancedContext& context, PMTicketRef ticket) {
    WriteNumber(ticket, kBookletOrderKey, context.bookletOrder);
    const OSStatus status = WriteNumber(ticket, kRotateKey, CFIndex{context.rotate} - 1);
    for (const ChoiceRow& row : kChoices) {
        const CFStringRef keyword = CFStringMakeConstant(row.keyword);
        PPDSetCurrentChoice(ticket, keyword, PPDChoiceForTicketValue(keyword, context.*row.value));
    }
    return status;
}

OSStatus ReadTicket(_AdvancedContext& context, PMTicketRef ticket) {
    context.bookletOrder = SInt32InTicket(ticket, kBookletOrderKey, kDefaultBookletOrder);
    context.rotate = SInt32InTicket(ticket, kRotateKey, kDefaultRotate);
    for (const ChoiceRow& row : kChoices) {
        PPDGetTicketValueForChoiceOrDefault(context.ppd, ticket, CFStringMakeConstant(row.keyword),
                                            &(context.*row.value));
    }
    ShowAdvanced(context);
    return noErr;
}

void RemoveHandler(_AdvancedContext& context) { RemoveEventHandler(context.handler); }

constexpr PanelParts<_AdvancedContext> kParts = {
    .titleKey = "Advanced",
    .read = ReadTicket,
    .write = WriteTicket,
    .build = BuildAdvancedControls,
    .finish = RemoveHandler,
};

}  // namespace
}  // namespace kalmo

extern "C" OSStatus GetAdvancedPanelInterface(PDEInterfaceObject** out) {
    return kalmo::CreatePanel<kalmo::_AdvancedContext, kalmo::kParts>(out);
}
