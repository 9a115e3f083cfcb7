#include "image_options/image_options_panel.h"

#include "controls/panel_operations.h"

namespace kalmo {
namespace {

OSStatus WriteTicket(ImageOptionsContext& context, PMTicketRef ticket) {
    SaveUIValuesToData(context);
    SyncResolutionToTicket(context, ticket);
    SyncTonerSaverToTicket(context, ticket);
    SyncLightenDarkenToTicket(context, ticket);
    return InvertImageSync(context.invertHelper, &context.invert, kSyncToTicket, ticket);
}

OSStatus ReadTicket(ImageOptionsContext& context, PMTicketRef ticket) {
    SyncResolutionToUI(context, ticket);
    SyncTonerSaverToUI(context, ticket);
    SyncLightenDarkenToUI(context, ticket);
    RestoreUIValuesFromData(context);
    const OSStatus status =
        InvertImageSync(context.invertHelper, &context.invert, kSyncToUI, ticket);
    // The helper has no boxes of its own: the panel's show what it has just read.
    ShowInvertImage(context);
    return status;
}

void PrepareHelper(ImageOptionsContext& context) {
    InvertImageInitialize(&context.invertHelper, &context.invert);
}

void RemoveHandler(ImageOptionsContext& context) { RemoveEventHandler(context.handler); }

constexpr PanelParts<ImageOptionsContext> kParts = {
    .titleKey = "ImageOptions",
    .initialize = PrepareHelper,
    .read = ReadTicket,
    .write = WriteTicket,
    .build = BuildImageOptionsControls,
    .finish = RemoveHandler,
};

}  // namespace
}  // namespace kalmo

extern "C" OSStatus GetImageOptionsPanelInterface(PDEInterfaceObject** out) {
    return kalmo::CreatePanel<kalmo::ImageOptionsContext, kalmo::kParts>(out);
}
