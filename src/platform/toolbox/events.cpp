#include "toolbox/events.h"

#include <algorithm>
#include <utility>

#include "toolbox/event_way.h"
#include "toolbox/menu_model.h"
#include "toolbox/modal_loop.h"

// The handlers that an event meets, taken down when it starts: installing and removing on the way
// changes nothing but that removed ones are passed over.
struct OpaqueEventHandlerCall {
    std::vector<std::shared_ptr<toolbox::EventHandler>> way;
    std::size_t next = 0;
};

namespace toolbox {
namespace {

int runningHandlers = 0;

// References are numbers that never come back, so a reference already gone is simply not found.
using Handlers = QHash<quintptr, std::shared_ptr<EventHandler>>;

Handlers& InstalledHandlers() {
    static auto& handlers = *new Handlers;
    return handlers;
}

bool Wants(const EventHandler& handler, const OpaqueEvent& event) {
    return std::ranges::any_of(handler.types, [&event](const EventTypeSpec& type) {
        return type.eventClass == event.eventClass && type.eventKind == event.kind;
    });
}

OpaqueEventHandlerCall WayFrom(const QWidget& start, const OpaqueEvent& event) {
    OpaqueEventHandlerCall call;
    for (const QWidget* view = &start; view;
         view = view->isWindow() ? nullptr : view->parentWidget()) {
        const ControlState* state = FindState(*view);
        if (!state) continue;
        std::copy_if(state->handlers.rbegin(), state->handlers.rend(), std::back_inserter(call.way),
                     [&event](const auto& handler) { return Wants(*handler, event); });
    }
    return call;
}

OSStatus RunRest(OpaqueEventHandlerCall& call, OpaqueEvent& event) {
    while (call.next < call.way.size()) {
        const std::shared_ptr<EventHandler> handler = call.way[call.next++];
        if (!handler->proc) continue;
        const OSStatus answer = handler->proc(&call, &event, handler->userData);
        if (answer != eventNotHandledErr) return answer;
    }
    if (!event.standard) return eventNotHandledErr;
    std::exchange(event.standard, nullptr)();
    return noErr;
}

OSStatus Install(QWidget* target, const EventHandler& handler, EventHandlerRef* reference) {
    if (!target || !handler.proc || handler.types.empty()) return paramErr;
    static quintptr lastReference = 0;
    const auto installed = std::make_shared<EventHandler>(handler);
    installed->target = target;
    StateOf(*target).handlers.push_back(installed);
    InstalledHandlers().removeIf([](const Handlers::iterator& entry) {
        return !entry.value()->proc;  // its widget is gone
    });
    InstalledHandlers().insert(++lastReference, installed);
    if (reference) *reference = reinterpret_cast<EventHandlerRef>(lastReference);
    return noErr;
}

UInt32 CommandOf(QWidget& control) {
    if (const UInt32 command = ChosenItem(control).data(kCommandRole).toUInt()) return command;
    if (const ControlState* state = FindState(control); state && state->command) {
        return state->command;
    }
    return CommandInModalLoop(control);
}

}  // namespace

OSStatus SendEvent(QWidget& start, OpaqueEvent& event) {
    OpaqueEventHandlerCall call = WayFrom(start, event);
    ++runningHandlers;
    const OSStatus answer = RunRest(call, event);
    --runningHandlers;
    return answer;
}

void CallAction(QWidget& control, SInt16 part) {
    const ControlState* const state = FindState(control);
    if (!state || !state->action) return;
    ++runningHandlers;
    state->action(ToControl(&control), part);
    --runningHandlers;
}

void UserChanged(QWidget& widget) {
    const QPointer<QWidget> control = &widget;
    OpaqueEvent hit{kEventClassControl, kEventControlHit, control};
    if (SendEvent(widget, hit) != eventNotHandledErr || !control) return;
    if (const UInt32 command = CommandOf(*control)) {
        SendChosenCommand(*control, command, ChosenItem(*control));
    }
}

void SendChosenCommand(QWidget& control, UInt32 command, const QModelIndex& item) {
    const QPointer<QWidget> window = control.window();
    OpaqueEvent event{kEventClassCommand, kEventCommandProcess, &control, command, nullptr, item};
    if (SendEvent(control, event) == eventNotHandledErr && window) {
        RunStandardCommand(*window, command);
    }
}

bool HandlersAreRunning() { return runningHandlers > 0; }

}  // namespace toolbox

using namespace toolbox;

OSStatus InstallControlEventHandler(ControlRef control, EventHandlerProc proc, UInt32 count,
                                    const EventTypeSpec* types, void* userData,
                                    EventHandlerRef* handler) {
    if (!types) return paramErr;
    return Install(ToWidget(control), {proc, {types, types + count}, userData, nullptr}, handler);
}

OSStatus InstallWindowEventHandler(WindowRef window, EventHandlerProc proc, UInt32 count,
                                   const EventTypeSpec* types, void* userData,
                                   EventHandlerRef* handler) {
    return InstallControlEventHandler(ToControl(ToWidget(window)), proc, count, types, userData,
                                      handler);
}

void RemoveEventHandler(EventHandlerRef reference) {
    const auto handler = InstalledHandlers().take(reinterpret_cast<quintptr>(reference));
    if (!handler) return;
    handler->proc = nullptr;
    if (ControlState* state = handler->target ? FindState(*handler->target) : nullptr) {
        std::erase(state->handlers, handler);
    }
}

OSStatus CallNextEventHandler(EventHandlerCallRef next, EventRef event) {
    return next && event ? RunRest(*next, *event) : eventNotHandledErr;
}

UInt32 GetEventClass(EventRef event) { return event ? event->eventClass : 0; }
UInt32 GetEventKind(EventRef event) { return event ? event->kind : 0; }
ControlRef GetEventControl(EventRef event) { return event ? ToControl(event->control) : nullptr; }
UInt32 GetEventCommand(EventRef event) { return event ? event->command : 0; }
CFStringRef GetEventText(EventRef event) { return event ? event->text : nullptr; }
UInt32 GetEventTextByteSize(EventRef event) {
    const CFStringRef text = GetEventText(event);
    return text ? static_cast<UInt32>(CFStringGetLength(text) * CFIndex{sizeof(UniChar)}) : 0;
}
Boolean GetEventHasFocus(EventRef event) { return event && event->hasFocus; }
UniChar GetEventKeyCharacter(EventRef event) { return event ? event->keyCharacter : UniChar{0}; }
Boolean GetEventHasControlKey(EventRef event) { return event && event->hasControlKey; }
DrawingRef GetEventDrawing(EventRef event) { return event ? event->drawing : nullptr; }

Boolean GetEventMenuItem(EventRef event, MenuRef* menu, UInt16* item) {
    if (!event || !event->menuItem.isValid()) return false;
    if (menu) *menu = ToMenuRef(qobject_cast<const Menu*>(event->menuItem.model()));
    if (item) *item = static_cast<UInt16>(event->menuItem.row() + 1);
    return true;
}

Boolean GetEventMousePlace(EventRef event, SInt32* x, SInt32* y) {
    if (!event || !event->mousePlace) return false;
    if (x) *x = event->mousePlace->x();
    if (y) *y = event->mousePlace->y();
    return true;
}

OSStatus SendCommandFromControl(ControlRef control, UInt32 command) {
    QWidget* const start = ToWidget(control);
    if (!start) return paramErr;
    OpaqueEvent event{kEventClassCommand, kEventCommandProcess, start, command};
    return SendEvent(*start, event);
}

OSStatus SendCommandToWindow(WindowRef window, UInt32 command) {
    QWidget* const start = ToWidget(window);
    if (!start) return paramErr;
    OpaqueEvent event{kEventClassCommand, kEventCommandProcess, nullptr, command};
    return SendEvent(*start, event);
}

OSStatus SendEventToControl(ControlRef control, UInt32 eventClass, UInt32 kind) {
    QWidget* const start = ToWidget(control);
    if (!start) return paramErr;
    OpaqueEvent event{eventClass, kind, start};
    return SendEvent(*start, event);
}
