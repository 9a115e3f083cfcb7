#include <iterator>

#include "controls/panel_layout.h"
#include "controls/pictures.h"
#include "settings/setting_maps.h"
#include "shell/base/texts.h"
#include "watermark/booklet_service.h"
#include "watermark/watermark_menu.h"
#include "watermark/watermark_panel.h"
#include "watermark/watermark_store.h"

namespace kalmo {
namespace {

using Context = _BookletWatermarkContext;
using Controls = BookletWatermarkControls;

constexpr SInt32 kSection = 1700;

constexpr struct {
    SInt32 id;
    ControlRef Controls::*control;
} kControls[] = {
    {1702, &Controls::watermark},      {1703, &Controls::options}, {1704, &Controls::warning},
    {1705, &Controls::page},           {1707, &Controls::booklet}, {1708, &Controls::bookletState},
    {1709, &Controls::bookletPicture},
};

/// What the menu lists: the user's watermarks, and the ticket's where it is none of them.
Owned<CFMutableArrayRef> ListedNames(const Context& context) {
    auto names = Owned<CFMutableArrayRef>::Adopt(
        CFArrayCreateMutableCopy(kCFAllocatorDefault, 0, context.names));
    const CFStringRef chosen = context.choice.name();
    if (chosen && !CFArrayContainsValue(names, {0, CFArrayGetCount(names)}, chosen))
        CFArrayAppendValue(names, chosen);
    return names;
}

UInt16 ChosenItem(const Context& context, CFArrayRef names) {
    const CFStringRef name = context.choice.name();
    const CFRange all{0, CFArrayGetCount(names)};
    return name ? static_cast<UInt16>(CFArrayGetFirstIndexOfValue(names, all, name) + 2) : 1;
}

void ShowMenu(const Context& context) {
    const MenuRef menu = GetControlPopupMenu(context.controls.watermark);
    const auto names = ListedNames(context);
    FillWatermarkMenu(menu, context.bundle, names);
    MarkWatermarkMenu(menu, {.item = ChosenItem(context, names),
                             .isStored = !context.isTheJobsOwn,
                             .layer = context.choice.layer(),
                             .pages = context.choice.pages()});
}

Owned<CFStringRef> ChosenText(const Context& context) {
    const CFStringRef name = context.choice.name();
    return name ? CopyShortened(name, kLongestWatermarkTitle)
                : CopyText(context.bundle, CFSTR("NoWatermark"));
}

Owned<CFStringRef> Nothing() { return Owned<CFStringRef>::Retain(CFSTR("")); }

Owned<CFStringRef> OptionText(const Context& context, SInt32 value) {
    return CopyText(context.bundle, LocalizedKeyForTicketValue(WatermarkOptionsMap, value));
}

/// Where it lies and on which pages, in two lines; empty without a watermark.
Owned<CFStringRef> OptionsText(const Context& context) {
    auto text = Owned<CFMutableStringRef>::Adopt(CFStringCreateMutable(kCFAllocatorDefault, 0));
    if (context.choice.isNone()) return text;
    CFStringAppend(text, OptionText(context, context.choice.layer()));
    CFStringAppend(text, CFSTR("\n"));
    CFStringAppend(text, OptionText(context, context.choice.pages()));
    return text;
}

Owned<CFStringRef> Warning(const Context& context, OSStatus status) {
    if (status != noErr) return CopyText(context.bundle, CFSTR("WatermarkPictureMissing"));
    WatermarkHolder record;
    context.choice.load(record.get());
    const bool isEmpty = !record->textString[0] && !record->filename[0];
    if (isEmpty && !context.choice.isNone())
        return CopyText(context.bundle, CFSTR("WatermarkEmpty"));
    return Nothing();
}

void Warn(const Context& context, OSStatus status) {
    const auto text = Warning(context, status);
    SetControlTitleWithCFString(context.controls.warning, text);
}

/// A drawing that comes late may be of another watermark than is chosen now. What the user changes
/// meanwhile is not undone by saving it: this is the thread that the user's changes are made on.
void KeepDrawn(Context& context, const _WatermarkData& drawn, OSStatus status) {
    if (!context.choice.isDrawnAs(drawn)) return;
    Warn(context, status);
    if (status != noErr || !drawn.textMode) return;
    context.choice.keepLayout(drawn);
    if (!context.isTheJobsOwn) saveWatermarkData(kWatermarkStore, drawn, WatermarkSave::passing);
}

Owned<CFStringRef> BookletText(const Context& context, const BookletService& service) {
    if (!service.state) return Nothing();
    return CopyText(context.bundle, CFStringMakeConstant(service.state().descriptionKey));
}

void FindControls(Context& context) {
    const WindowRef window = GetControlOwner(context.pane);
    for (const auto& row : kControls)
        GetControlByID(window, {'KPDE', row.id}, &(context.controls.*row.control));
}

void RunBooklet(Context& context) {
    if (const auto run = InstalledBookletService().run) run();
    ShowBooklet(context);
}

OSStatus Draw(Context& context, EventRef event) {
    const ControlRef control = GetEventControl(event);
    if (control == context.controls.page) return context.preview->draw(event);
    const auto& state = InstalledBookletService().state;
    if (control != context.controls.bookletPicture || !state) return eventNotHandledErr;
    return DrawImage(event, CFStringMakeConstant(state().picture.c_str()));
}

constexpr struct {
    UInt32 command;
    void (*act)(Context& context);
} kCommands[] = {
    {kNoWatermarkCommand, ChooseNoWatermark},
    {kNewWatermarkCommand, NewWatermark},
    {kEditWatermarkCommand, EditWatermark},
    {kDeleteWatermarkCommand, DeleteWatermark},
};

void Obey(Context& context, UInt32 command, ItemReference reference) {
    if (command == kWatermarkCommand) ChooseWatermark(context, reference);
    if (command == kWatermarkOptionsCommand)
        ChooseWatermarkOption(context, static_cast<SInt32>(reference));
    for (const auto& row : kCommands)
        if (row.command == command) return row.act(context);
}

void HandleCommand(Context& context, EventRef event) {
    MenuRef menu = nullptr;
    UInt16 item = 0;
    if (!GetEventMenuItem(event, &menu, &item)) return;
    ItemReference reference = 0;
    GetMenuItemRefCon(menu, item, &reference);
    Obey(context, GetEventCommand(event), reference);
}

OSStatus Handle(Context& context, EventRef event) {
    if (GetEventClass(event) == kEventClassCommand) {
        HandleCommand(context, event);
    } else if (GetEventKind(event) == kEventControlDraw) {
        return Draw(context, event);
    } else if (GetEventControl(event) == context.controls.booklet) {
        RunBooklet(context);
    }
    return eventNotHandledErr;
}

OSStatus HandleEvent(EventHandlerCallRef, EventRef event, void* context) {
    return WithoutExceptions(eventNotHandledErr,
                             [&] { return Handle(*static_cast<Context*>(context), event); });
}

/// The job must not go before its watermark is drawn.
OSStatus HandlePrint(EventHandlerCallRef, EventRef event, void* context) {
    return WithoutExceptions(eventNotHandledErr, [&] {
        if (GetEventCommand(event) == 'ok  ') FinishDrawing(*static_cast<Context*>(context));
        return eventNotHandledErr;
    });
}

/// On the pane: the events of all controls in it pass there.
void InstallHandler(Context& context) {
    constexpr EventTypeSpec kEvents[] = {{kEventClassControl, kEventControlHit},
                                         {kEventClassControl, kEventControlDraw},
                                         {kEventClassCommand, kEventCommandProcess}};
    InstallControlEventHandler(context.pane, HandleEvent, std::size(kEvents), kEvents, &context,
                               &context.handler);
    constexpr EventTypeSpec kPrint[] = {{kEventClassCommand, kEventCommandProcess}};
    InstallWindowEventHandler(GetControlOwner(context.pane), HandlePrint, std::size(kPrint), kPrint,
                              &context, &context.printHandler);
}

void SetUpPreview(Context& context) {
    context.preview = std::make_unique<WatermarkPreview>(
        [&context](const _WatermarkData& drawn, OSStatus status) {
            KeepDrawn(context, drawn, status);
        });
    context.preview->setControl(context.controls.page);
}

}  // namespace

OSStatus BuildBookletWatermarkControls(Context& context) {
    const PanelSource source{context.bundle, CFSTR("BookletWatermarkPanel"),
                             CFSTR("BookletWatermark")};
    const OSStatus status = AppendSections(context.pane, source, {kSection});
    if (status != noErr) return status;
    FindControls(context);
    SetUpPreview(context);
    InstallHandler(context);
    context.opened = true;
    ShowBookletWatermark(context);
    return noErr;
}

void ShowBookletWatermark(Context& context) {
    if (!context.opened) return;
    ShowMenu(context);
    const auto chosen = ChosenText(context), options = OptionsText(context);
    SetControlTitleWithCFString(context.controls.watermark, CopyAsTitle(chosen));
    SetControlTitleWithCFString(context.controls.options, options);
    SetControlAccessibleDescription(context.controls.page, chosen);
    Warn(context, noErr);
    renderWatermark(&context);
    ShowBooklet(context);
}

void ShowBooklet(Context& context) {
    if (!context.opened) return;
    const BookletService& service = InstalledBookletService();
    service.run ? EnableControl(context.controls.booklet)
                : DisableControl(context.controls.booklet);
    const auto words = BookletText(context, service);
    SetControlTitleWithCFString(context.controls.bookletState, words);
    SetControlAccessibleDescription(context.controls.bookletPicture, words);
    SetControlNeedsDisplay(context.controls.bookletPicture);
}

void renderWatermark(_BookletWatermarkContext* context) {
    WatermarkHolder record;
    const CFStringRef name = context->choice.name();
    if (context->isTheJobsOwn || !name) {
        context->choice.load(record.get());
    } else if (loadWatermarkData(kWatermarkStore, name, *record) && record->textString[0]) {
        record->textMode = 1;
    }
    context->preview->show(*record, context->page);
}

}  // namespace kalmo
