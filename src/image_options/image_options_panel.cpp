#include "image_options/image_options_panel.h"

#include <new>

#include "settings/ticket.h"

namespace kalmo {
namespace {

ImageOptionsContext* Record(PDEContext context) {
    return static_cast<ImageOptionsContext*>(context);
}

OSStatus _Prologue(PDEContext* context, OSType* creator, CFStringRef* kind, CFStringRef* title,
                   UInt32* maximumWidth, UInt32* maximumHeight) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        auto* made = new (std::nothrow) ImageOptionsContext;
        *context = made;
        if (!made) return kPMInvalidPDEContext;
        AnswerPanelPrologue(*made, CFSTR("ImageOptions"), creator, kind, title, maximumWidth,
                            maximumHeight);
        return noErr;
    });
}

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

OSStatus _Sync(PDEContext context, PMPrintSession session, Boolean direction) {
    return WithoutExceptions(kPMInvalidPrintSession, [&]() -> OSStatus {
        if (!session || !context) return kPMInvalidPrintSession;
        PMTicketRef ticket = kPMNoTicket;
        const OSStatus status = GetTicketFromSession(session, kPMPrintSettingsTicket, &ticket);
        if (status != noErr) return status;
        return direction == kSyncToTicket ? WriteTicket(*Record(context), ticket)
                                          : ReadTicket(*Record(context), ticket);
    });
}

OSStatus _Initialize(PDEContext context, UInt32*, void*, ControlRef pane, PMPrintSession session) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        if (!session || !context) return kPMInvalidPDEContext;
        ImageOptionsContext& record = *Record(context);
        record.pane = pane;
        InvertImageInitialize(&record.invertHelper, &record.invert);
        record.ppd = PPDGetCurrent();
        return _Sync(context, session, kSyncToUI);
    });
}

OSStatus _GetSummaryText(PDEContext context, CFArrayRef* titles, CFArrayRef* values) {
    *titles = nullptr;
    *values = nullptr;
    return context ? noErr : kPMInvalidPDEContext;
}

OSStatus _Open(PDEContext context) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        if (!context || Record(context)->opened) return kPMInvalidPDEContext;
        return BuildImageOptionsControls(*Record(context));
    });
}

OSStatus _Close(PDEContext context) { return context ? noErr : kPMInvalidPDEContext; }

OSStatus _Terminate(PDEContext context, OSStatus) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        if (!context) return kPMInvalidPDEContext;
        RemoveEventHandler(Record(context)->handler);
        delete Record(context);
        return noErr;
    });
}

}  // namespace
}  // namespace kalmo

extern "C" OSStatus GetImageOptionsPanelInterface(PDEInterfaceObject** out) {
    return kalmo::CreatePanelInterface({.Prologue = kalmo::_Prologue,
                                        .Initialize = kalmo::_Initialize,
                                        .Sync = kalmo::_Sync,
                                        .GetSummaryText = kalmo::_GetSummaryText,
                                        .Open = kalmo::_Open,
                                        .Close = kalmo::_Close,
                                        .Terminate = kalmo::_Terminate},
                                       out);
}
