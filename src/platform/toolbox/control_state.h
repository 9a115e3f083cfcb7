// What the toolbox keeps beside a widget: identity, bounds that the widget does not have itself,
// state, properties, handlers. Everything else is asked of the widget.
#pragma once

#include <QHash>
#include <QPointer>
#include <QTabWidget>
#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

#include "toolbox/controls.h"
#include "toolbox/events.h"

namespace toolbox {

[[nodiscard]] inline QWidget* ToWidget(ControlRef control) {
    return reinterpret_cast<QWidget*>(control);
}
[[nodiscard]] inline QWidget* ToWidget(WindowRef window) {
    return reinterpret_cast<QWidget*>(window);
}
[[nodiscard]] inline ControlRef ToControl(QWidget* widget) {
    return reinterpret_cast<ControlRef>(widget);
}
[[nodiscard]] inline WindowRef ToWindow(QWidget* widget) {
    return reinterpret_cast<WindowRef>(widget);
}

/// Two four-character codes, or a code and a number, as one key.
[[nodiscard]] constexpr quint64 PairKey(UInt32 first, UInt32 second) {
    return quint64{first} << 32 | second;
}
[[nodiscard]] inline quint64 KeyOf(const ControlID& id) {
    return PairKey(id.signature, static_cast<UInt32>(id.id));
}

struct EventHandler {
    EventHandlerProc proc = nullptr;  // null once removed
    std::vector<EventTypeSpec> types;
    void* userData = nullptr;
    QPointer<QWidget> target;
};

struct ControlState {
    ControlID id{};
    std::optional<SInt32> minimum, maximum;  // popups and check boxes
    bool active = true;
    bool enabledWhenActive = true;  // while inactive: what comes back
    UInt32 command = 0;             // sent when the control is pressed
    QHash<quint64, QByteArray> properties;
    QHash<UInt32, QByteArray> data;  // by tag
    ControlActionProc action = nullptr;
    std::vector<std::shared_ptr<EventHandler>> handlers;  // oldest first
    bool hasTakenLeave = false;                           // kEventControlDispose was sent
    QPointer<QWidget> defaultButton, cancelButton;        // windows
};

/// Made at the first call, which also makes the widget report its user's changes; gone with the
/// widget. The reference stays valid as long as the widget lives.
[[nodiscard]] ControlState& StateOf(QWidget& widget);
/// Null when the widget has none.
[[nodiscard]] ControlState* FindState(const QWidget& widget);

/// None of them is called again, not even by an event already on its way.
void EndHandlers(ControlState& state);

/// The widget's own visibility: not taken away by hiding it, whatever its window does.
[[nodiscard]] inline bool IsShown(const QWidget& widget) {
    return !widget.isHidden() || !widget.testAttribute(Qt::WA_WState_ExplicitShowHide);
}

/// The widgets directly inside, without windows and without a widget's own inner parts; of tabs
/// their pages.
[[nodiscard]] std::vector<QWidget*> Subviews(const QWidget& widget);

/// The tabs that the widget is a page of; null when it is none.
[[nodiscard]] QTabWidget* TabsOf(const QWidget& page);

}  // namespace toolbox
