// A colour panel in a plug-in of its own: lightness by a slider, or left to the printer.
//
// What else the ticket's dictionary holds (contrast, profiles ...) is kept and written back.
#include <cstdlib>
#include <new>

#include "foundation/bundle.h"
#include "image_options/full_color_options.h"
#include "kalmo/pde.h"
#include "printing/session.h"
#include "printing/ticket.h"
#include "shell/base/panel_interface.h"
#include "toolbox/controls.h"
#include "toolbox/events.h"

namespace {

using kalmo::FullColorOptions;
using kalmo::kPrinterDefault;

#define kIdentifier CFSTR("com.example.ColorOptions")
/// The dictionary of the record; absent while nothing is set.
#define kColorOptionsKey CFSTR("com.example.ColorOptions")

constexpr OSType kSignature = 'XCol';
enum : SInt32 { kSection = 1, kSlider = 3, kValue = 4, kReset = 5 };

struct ColorPanel : kalmo::PanelContext {
    FullColorOptions options;
    ControlRef slider = nullptr, value = nullptr, reset = nullptr;  // null until the first Open
    EventHandlerRef handler = nullptr;
};

ColorPanel& PanelOf(PDEContext context) { return *static_cast<ColorPanel*>(context); }

Owned<CFStringRef> CopyText(const ColorPanel& panel, CFStringRef key) {
    return Owned<CFStringRef>::Adopt(
        CFBundleCopyLocalizedString(panel.bundle, key, nullptr, nullptr));
}

Owned<CFStringRef> CopyLightnessText(const ColorPanel& panel, SInt32 lightness) {
    if (lightness == kPrinterDefault) return CopyText(panel, CFSTR("Lightness Not Set"));
    const auto number = Owned<CFNumberRef>::Adopt(
        CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt32Type, &lightness));
    return Owned<CFStringRef>::Adopt(
        CFStringCreateWithFormat(kCFAllocatorDefault, CFSTR("%d"), number.get()));
}

/// Record to controls; without them nothing.
void Show(const ColorPanel& panel) {
    SInt32 lightness = kPrinterDefault;
    panel.options.lightness(&lightness);
    SetControl32BitValue(panel.slider, lightness == kPrinterDefault ? 0 : lightness);
    SetControlTitleWithCFString(panel.value, CopyLightnessText(panel, lightness));
}

OSStatus WriteTicket(const ColorPanel& panel, PMTicketRef ticket) {
    const auto dictionary = Owned<CFMutableDictionaryRef>::Adopt(panel.options.asTicket());
    if (!dictionary) return memFullErr;
    if (CFDictionaryGetCount(dictionary) > 0)
        return PMTicketSetCFDictionary(ticket, kIdentifier, kColorOptionsKey, dictionary, false);
    const OSStatus status = PMTicketReleaseItem(ticket, kColorOptionsKey);
    return status == kPMKeyNotFound ? noErr : status;
}

OSStatus ReadTicket(ColorPanel& panel, PMTicketRef ticket) {
    CFDictionaryRef dictionary = nullptr;
    const OSStatus status = PMTicketGetCFDictionary(ticket, kColorOptionsKey, &dictionary);
    panel.options = FullColorOptions(dictionary);
    Show(panel);
    return status == kPMKeyNotFound ? noErr : status;
}

OSStatus TakeOver(EventHandlerCallRef, EventRef event, void* userData) {
    return kalmo::WithoutExceptions(eventNotHandledErr, [&] {
        ColorPanel& panel = PanelOf(userData);
        const ControlRef hit = GetEventControl(event);
        if (hit == panel.slider) panel.options.setLightness(GetControl32BitValue(panel.slider));
        if (hit == panel.reset) panel.options.setLightness(kPrinterDefault);
        Show(panel);
        return eventNotHandledErr;
    });
}

/// Moves the section of the interface file into the pane.
OSStatus UnpackSection(const ColorPanel& panel) {
    IBNibRef nib = nullptr;
    WindowRef window = nullptr;
    ControlRef section = nullptr;
    OSStatus status = CreateNibReferenceWithCFBundle(panel.bundle, CFSTR("ColorOptions"), &nib);
    if (status == noErr) status = CreateWindowFromNib(nib, CFSTR("Window"), &window);
    if (status == noErr) status = GetControlByID(window, {kSignature, kSection}, &section);
    if (status == noErr) status = MoveSubviewsToPane(section, panel.pane, 0);
    DisposeWindow(window);
    if (nib) DisposeNibReference(nib);
    return status;
}

OSStatus BuildControls(ColorPanel& panel) {
    if (const OSStatus status = UnpackSection(panel); status != noErr) return status;
    const WindowRef window = GetControlOwner(panel.pane);
    GetControlByID(window, {kSignature, kSlider}, &panel.slider);
    GetControlByID(window, {kSignature, kValue}, &panel.value);
    GetControlByID(window, {kSignature, kReset}, &panel.reset);
    constexpr EventTypeSpec kHit = {kEventClassControl, kEventControlHit};
    InstallControlEventHandler(panel.pane, TakeOver, 1, &kHit, &panel, &panel.handler);
    panel.opened = true;
    Show(panel);
    return noErr;
}

// The seven operations. Nothing thrown leaves one.

OSStatus Prologue(PDEContext* context, OSType* creator, CFStringRef* kind, CFStringRef* title,
                  UInt32* maximumWidth, UInt32* maximumHeight) {
    return kalmo::WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        auto* panel = new (std::nothrow) ColorPanel;
        *context = panel;
        if (!panel) return kPMInvalidPDEContext;
        panel->bundle = CFBundleGetBundleWithIdentifier(kIdentifier);
        panel->title = CopyText(*panel, CFSTR("Title"));
        *creator = 'Kshl';
        *kind = CFSTR("com.kalmo.print.pde.kalmofeatureskind");
        *title = panel->title;
        *maximumWidth = *maximumHeight = 0;
        return noErr;
    });
}

OSStatus Sync(PDEContext context, PMPrintSession session, Boolean direction) {
    return kalmo::WithoutExceptions(kPMInvalidPrintSession, [&]() -> OSStatus {
        if (!context || !session) return kPMInvalidPrintSession;
        const PMTicketRef ticket = PMSessionGetTicket(session, kPMPrintSettingsTicket);
        return direction == kSyncToTicket ? WriteTicket(PanelOf(context), ticket)
                                          : ReadTicket(PanelOf(context), ticket);
    });
}

OSStatus Initialize(PDEContext context, UInt32*, void*, ControlRef pane, PMPrintSession session) {
    if (!context || !session) return kPMInvalidPDEContext;
    PanelOf(context).pane = pane;
    return Sync(context, session, kSyncToUI);
}

OSStatus GetSummaryText(PDEContext context, CFArrayRef* titles, CFArrayRef* values) {
    *titles = *values = nullptr;
    return context ? noErr : kPMInvalidPDEContext;
}

OSStatus Open(PDEContext context) {
    return kalmo::WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        if (!context || PanelOf(context).opened) return kPMInvalidPDEContext;
        return BuildControls(PanelOf(context));
    });
}

OSStatus Close(PDEContext context) { return context ? noErr : kPMInvalidPDEContext; }

OSStatus Terminate(PDEContext context, OSStatus) {
    if (!context) return kPMInvalidPDEContext;
    RemoveEventHandler(PanelOf(context).handler);
    delete &PanelOf(context);
    return noErr;
}

}  // namespace

/// Object and table come from malloc: the shell frees both.
extern "C" [[gnu::visibility("default")]] OSStatus GetColorOptionPanelInterface(
    PDEInterfaceObject** out) {
    auto* object = static_cast<PDEInterfaceObject*>(std::malloc(sizeof(PDEInterfaceObject)));
    auto* table = static_cast<PDEInterfaceTable*>(std::malloc(sizeof(PDEInterfaceTable)));
    *out = object && table ? object : nullptr;
    if (!*out) {
        std::free(object);
        std::free(table);
        return noErr;
    }
    object->table = new (table) PDEInterfaceTable{.Prologue = Prologue,
                                                  .Initialize = Initialize,
                                                  .Sync = Sync,
                                                  .GetSummaryText = GetSummaryText,
                                                  .Open = Open,
                                                  .Close = Close,
                                                  .Terminate = Terminate};
    return noErr;
}
