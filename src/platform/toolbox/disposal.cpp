#include "toolbox/disposal.h"

#include <algorithm>
#include <utility>

#include "toolbox/event_way.h"

namespace toolbox {

namespace {

/// A handler may free controls in turn: these have taken leave then.
void TakeLeave(QWidget& widget) {
    ControlState* const state = FindState(widget);
    if (!state || std::exchange(state->hasTakenLeave, true)) return;
    OpaqueEvent event{kEventClassControl, kEventControlDispose, &widget};
    const QPointer<QWidget> alive = &widget;
    SendEvent(widget, event);
    if (alive) EndHandlers(*state);
}

void TakeLeaveFromInside(QWidget& widget) {
    QList<QPointer<QWidget>> widgets{&widget};
    for (QWidget* inside : widget.findChildren<QWidget*>()) widgets.append(inside);
    std::ranges::reverse(widgets);
    for (const QPointer<QWidget>& leaving : widgets) {
        if (leaving) TakeLeave(*leaving);
    }
}

}  // namespace

void Dispose(QWidget& widget) {
    const QPointer<QWidget> alive = &widget;
    TakeLeaveFromInside(widget);
    if (!alive) return;
    if (!HandlersAreRunning()) {
        delete &widget;
        return;
    }
    widget.hide();
    widget.setParent(nullptr);
    widget.deleteLater();
}

}  // namespace toolbox
