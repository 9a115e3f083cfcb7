// The panel's controls: three boxes for names, three fields for messages, and their buttons.
#include <algorithm>
#include <iterator>

#include "controls/combo_box.h"
#include "controls/input_limits.h"
#include "controls/nib_holders.h"
#include "controls/panel_layout.h"
#include "job_notes/job_notes_panel.h"
#include "settings/dictionary.h"
#include "settings/setting_maps.h"
#include "settings/ticket.h"

namespace kalmo {

const SettingMap LoginNameMap[] = {{CFSTR("UseLoginName"), kUseLoginName}, {}};

namespace {

using Context = _JobNotesContext;
using Controls = JobNotesControls;

/// Of the controls: their numbers are those of another panel's, too.
constexpr OSType kSignature = 'KPjn';
constexpr SInt32 kPaneID = 2000, kPreferencesID = 2006;

constexpr SInt32 kLongestName = 255, kMostNames = 20;

const struct {
    SInt32 id;
    ControlRef Controls::*box;
    bool Context::*usesItem;
    Owned<CFStringRef> Context::*name;
    const SettingMap* map;  // of the one item
    const char* historyKey;
} kNames[] = {
    {2001, &Controls::jobName, &Context::useJobName, &Context::jobName, JobNameMap,
     "jobNotesJobName"},
    {2002, &Controls::senderName, &Context::senderUseLoginName, &Context::senderName, LoginNameMap,
     "jobNotesSenderName"},
    {2003, &Controls::recipientName, &Context::recipientUseLoginName, &Context::recipientName,
     LoginNameMap, "jobNotesRecipientName"},
};

struct MessageRow {
    SInt32 id;
    ControlRef Controls::*field;
    Owned<CFStringRef> Context::*text;
    SInt32 mostLength;
    SInt32 clearID;
    ControlRef Controls::*clear;
};
constexpr MessageRow kMessages[kMessageCount] = {
    {2004, &Controls::bannerMessage, &Context::bannerMessage, 1000, 2007, &Controls::clearBanner},
    {2005, &Controls::jobStartMessage, &Context::jobStartMessage, 1000, 2008,
     &Controls::clearJobStart},
    {2010, &Controls::additionalInfo, &Context::additionalInfo, 255, 2011,
     &Controls::clearAdditional},
};

Owned<CFStringRef> TextOf(ControlRef field) {
    return Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(field));
}

bool IsEmpty(ControlRef field) {
    const auto text = TextOf(field);
    return !text || CFStringGetLength(text) == 0;
}

ControlRef FindIn(WindowRef window, SInt32 id) {
    ControlRef found = nullptr;
    GetControlByID(window, {kSignature, id}, &found);
    return found;
}

void FindControls(Controls& controls, WindowRef window) {
    controls.pane = FindIn(window, kPaneID);
    controls.preferences = FindIn(window, kPreferencesID);
    for (const auto& row : kNames) controls.*row.box = FindIn(window, row.id);
    for (const MessageRow& row : kMessages) {
        controls.*row.field = FindIn(window, row.id);
        controls.*row.clear = FindIn(window, row.clearID);
    }
}

OSStatus UnpackPane(Context& context) {
    NibHolder nib;
    OSStatus status = OpenNib(context.bundle, CFSTR("JobNotes"), &nib);
    if (status != noErr) return status;
    WindowHolder window;
    status = OpenNibWindow(nib, CFSTR("JobNotesEnhanced"), &window);
    if (status != noErr) return status;
    FindControls(context.controls, window.get());
    if (!context.controls.pane) return controlNotFoundErr;
    EmbedCentred(context.controls.pane, context.pane);
    ShowControl(context.controls.pane);
    return noErr;
}

void InitializeNames(const Context& context) {
    for (const auto& row : kNames) {
        KComboBoxInitializeWithMapAndHistory(context.controls.*row.box,
                                             {.kind = kComboBoxText,
                                              .bundle = context.bundle,
                                              .map = row.map,
                                              .historyKey = CFStringMakeConstant(row.historyKey),
                                              .historyLimit = kMostNames,
                                              .minimumLength = 1,
                                              .maximumLength = kLongestName});
    }
}

void UpdateClearButton(const Context& context, const MessageRow& row) {
    const ControlRef button = context.controls.*row.clear;
    IsEmpty(context.controls.*row.field) ? DisableControl(button) : EnableControl(button);
}

void ShowMessage(const Context& context, const MessageRow& row) {
    const ControlRef field = context.controls.*row.field;
    // What stands there already stays with its caret.
    if (const auto shown = TextOf(field); shown && !CFEqual(shown, context.*row.text))
        SetControlTitleWithCFString(field, context.*row.text);
    UpdateClearButton(context, row);
}

void ShowNames(const Context& context) {
    for (const auto& row : kNames) {
        const ControlRef box = context.controls.*row.box;
        if (context.*row.usesItem) {
            KComboBoxSetValue(box, CreateNumber(row.map->value));
        } else {
            KComboBoxSetValue(box, (context.*row.name).get());
        }
    }
}

/// At the end of the whole text, wherever the caret stands and whatever is selected (kept as it
/// is); the caret follows.
void AppendLineFeed(ControlRef field) {
    const auto text = Owned<CFMutableStringRef>::Adopt(
        CFStringCreateMutableCopy(kCFAllocatorDefault, 0, TextOf(field)));
    CFStringAppend(text, CFSTR("\n"));
    SetControlTitleWithCFString(field, text);
    SetControlTextSelection(field, {CFStringGetLength(text), 0});
}

bool IsFull(ControlRef field, const MessageRow& row) {
    const auto text = TextOf(field);
    return text && CFStringGetLength(text) >= row.mostLength;
}

bool IsReturn(UniChar character) { return character == 13 || character == 3; }

OSStatus HandleReturn(EventHandlerCallRef next, EventRef event, void* userData);

void InstallReturnHandler(Context& context, std::size_t message) {
    constexpr EventTypeSpec kKey = {kEventClassKeyboard, kEventRawKeyDown};
    InstallControlEventHandler(context.controls.*kMessages[message].field, HandleReturn, 1, &kKey,
                               &context, &context.returnHandlers[message]);
}

/// Steps aside while the field has the key, so that the way goes on as if this handler were not
/// there.
OSStatus AddLine(EventHandlerCallRef next, EventRef event, Context& context, std::size_t message) {
    const MessageRow& row = kMessages[message];
    const ControlRef field = context.controls.*row.field;
    if (IsFull(field, row)) {
        SysBeep();
        return noErr;
    }
    RemoveEventHandler(context.returnHandlers[message]);
    AppendLineFeed(field);
    const OSStatus status = CallNextEventHandler(next, event);
    InstallReturnHandler(context, message);
    UpdateClearButton(context, row);
    return status;
}

OSStatus HandleReturn(EventHandlerCallRef next, EventRef event, void* userData) {
    return WithoutExceptions(eventNotHandledErr, [&]() -> OSStatus {
        auto& context = *static_cast<Context*>(userData);
        const bool adds = IsReturn(GetEventKeyCharacter(event)) && !GetEventHasControlKey(event);
        const auto* const row = std::ranges::find_if(kMessages, [&](const MessageRow& each) {
            return context.controls.*each.field == GetEventControl(event);
        });
        if (!adds || row == std::end(kMessages)) return eventNotHandledErr;
        return AddLine(next, event, context, static_cast<std::size_t>(row - kMessages));
    });
}

/// The line break that a field would enter for the key passed on to it: it stands there already.
OSStatus SwallowBreak(EventHandlerCallRef, EventRef event, void*) {
    const CFStringRef text = GetEventText(event);
    const bool isBreak =
        text && CFStringGetLength(text) == 1 && IsReturn(CFStringGetCharacterAtIndex(text, 0));
    return isBreak ? noErr : eventNotHandledErr;
}

/// Newer than the limits of the field, so that a break does not come to them.
void InstallBreakHandler(Context& context, std::size_t message) {
    constexpr EventTypeSpec kInput = {kEventClassTextInput, kEventTextInput};
    InstallControlEventHandler(context.controls.*kMessages[message].field, SwallowBreak, 1, &kInput,
                               nullptr, &context.breakHandlers[message]);
}

void ClearMessage(const Context& context, const MessageRow& row) {
    const ControlRef field = context.controls.*row.field;
    SetControlTitleWithCFString(field, CFSTR(""));
    // First: a button that is disabled would hand the focus to its neighbour.
    SetKeyboardFocus(field);
    UpdateClearButton(context, row);
}

/// After OK the panel shows the ticket again, which first takes what was typed: as when another
/// panel is shown and this one again.
void RunPreferences(Context& context) {
    UpdateJobNotesContext(context);
    SInt32 result = kModalCancel;
    RunModalJobNotesPreferencesDialog(context.bundle, DialogMode::edit, JobContext::job,
                                      &context.preferences, &result);
    if (result != kModalOK) return;
    PMTicketRef ticket = kPMNoTicket;
    if (GetTicketFromSession(context.session, kPMPrintSettingsTicket, &ticket) != noErr) return;
    WriteJobNotes(context, ticket);
    ReadJobNotes(context, ticket);
}

OSStatus ObeyHit(Context& context, ControlRef hit) {
    if (hit == context.controls.preferences) {
        RunPreferences(context);
        return noErr;
    }
    for (const MessageRow& row : kMessages) {
        if (context.controls.*row.clear != hit) continue;
        ClearMessage(context, row);
        return noErr;
    }
    return eventNotHandledErr;
}

/// Hits of the buttons, and what the limits of the fields say after each input.
OSStatus HandlePaneEvent(EventHandlerCallRef, EventRef event, void* userData) {
    return WithoutExceptions(eventNotHandledErr, [&]() -> OSStatus {
        auto& context = *static_cast<Context*>(userData);
        if (GetEventClass(event) == kEventClassControl)
            return ObeyHit(context, GetEventControl(event));
        for (const MessageRow& row : kMessages) UpdateClearButton(context, row);
        return eventNotHandledErr;
    });
}

void InstallHandlers(Context& context) {
    constexpr EventTypeSpec kEvents[] = {{kEventClassControl, kEventControlHit},
                                         {kEventClassInputCheck, kEventInputEmpty},
                                         {kEventClassInputCheck, kEventInputTooShort},
                                         {kEventClassInputCheck, kEventInputLongEnough}};
    InstallControlEventHandler(context.controls.pane, HandlePaneEvent, std::size(kEvents), kEvents,
                               &context, &context.paneHandler);
    for (std::size_t message = 0; message < kMessageCount; ++message) {
        const MessageRow& row = kMessages[message];
        LimitInputLengthAndCharacters(context.controls.*row.field, 0, row.mostLength, nullptr);
        InstallReturnHandler(context, message);
        InstallBreakHandler(context, message);
    }
}

}  // namespace

OSStatus BuildJobNotesControls(Context& context) {
    if (const OSStatus status = UnpackPane(context); status != noErr) return status;
    context.opened = true;
    InitializeNames(context);
    UpdateJobNotesEditFields(context);
    InstallHandlers(context);
    return noErr;
}

void UpdateJobNotesContext(Context& context) {
    if (!context.opened) return;
    for (const MessageRow& row : kMessages)
        if (auto text = TextOf(context.controls.*row.field)) context.*row.text = std::move(text);
    for (const auto& row : kNames) {
        Owned<CFTypeRef> value;
        KComboBoxCopyValue(context.controls.*row.box, value.adopt());
        const auto typed = ValueOfType<CFStringRef>(value, CFStringGetTypeID());
        context.*row.usesItem = !typed;
        if (typed) context.*row.name = Owned<CFStringRef>::Retain(typed);
    }
}

/// The focus goes to the name of the job, unless it is outside of the panel: the print window has
/// the panel read again while the user works there.
void UpdateJobNotesEditFields(Context& context) {
    if (!context.opened) return;
    const bool hasFocus = HasKeyboardFocus(context.controls.pane);
    if (hasFocus) ClearKeyboardFocus(GetControlOwner(context.controls.pane));
    ShowNames(context);
    for (const MessageRow& row : kMessages) ShowMessage(context, row);
    if (hasFocus) SetKeyboardFocus(context.controls.jobName);
}

void FinishJobNotesControls(Context& context) {
    if (!context.opened) return;
    for (const auto& row : kNames) KComboBoxFinalize(context.controls.*row.box, true);
    RemoveEventHandler(context.paneHandler);
    for (const EventHandlerRef handler : context.returnHandlers) RemoveEventHandler(handler);
    for (const EventHandlerRef handler : context.breakHandlers) RemoveEventHandler(handler);
}

}  // namespace kalmo
