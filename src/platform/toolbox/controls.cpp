// Identity, texts, properties, and how a control looks and acts.
#include "toolbox/controls.h"

#include <QAbstractButton>
#include <QLineEdit>

#include "toolbox/control_index.h"
#include "toolbox/control_state.h"
#include "toolbox/disposal.h"
#include "toolbox/event_way.h"
#include "toolbox/field_fault.h"
#include "toolbox/picture_icon.h"
#include "toolbox/qt_strings.h"
#include "toolbox/widget_texts.h"

using namespace toolbox;

namespace {

/// `active` and `enabled` as the control's own wishes; the widget has one switch for both.
void SetState(QWidget& widget, bool active, bool enabled) {
    ControlState& state = StateOf(widget);
    state.active = active;
    state.enabledWhenActive = enabled;
    widget.setEnabled(active && enabled);
}

bool IsEnabledByItself(const QWidget& widget) {
    const ControlState* const state = FindState(widget);
    if (state && !state->active) return state->enabledWhenActive;
    return !widget.testAttribute(Qt::WA_ForceDisabled);
}

bool IsActiveByItself(const QWidget& widget) {
    const ControlState* const state = FindState(widget);
    return !state || state->active;
}

Qt::CursorShape CursorOf(PointerShape shape) {
    switch (shape) {
        case PointerShape::openHand:
            return Qt::OpenHandCursor;
        case PointerShape::closedHand:
            return Qt::ClosedHandCursor;
        case PointerShape::arrow:
            break;
    }
    return Qt::ArrowCursor;
}

}  // namespace

OSStatus GetControlByID(WindowRef window, ControlID id, ControlRef* control) {
    QWidget* const widget = ToWidget(window);
    if (!control) return paramErr;
    QWidget* const found = widget ? FindControl(*widget, id) : nullptr;
    if (!found) return controlNotFoundErr;
    *control = ToControl(found);
    return noErr;
}

OSStatus GetControlID(ControlRef control, ControlID* id) {
    QWidget* const widget = ToWidget(control);
    if (!widget || !id) return paramErr;
    const ControlState* const state = FindState(*widget);
    *id = state ? state->id : ControlID{};
    return noErr;
}

OSStatus SetControlID(ControlRef control, ControlID id) {
    QWidget* const widget = ToWidget(control);
    if (!widget) return paramErr;
    StateOf(*widget).id = id;
    return noErr;
}

WindowRef GetControlOwner(ControlRef control) {
    QWidget* const widget = ToWidget(control);
    return ToWindow(widget ? widget->window() : nullptr);
}

void SetControlTitleWithCFString(ControlRef control, CFStringRef title) {
    if (QWidget* const widget = ToWidget(control)) SetOwnText(*widget, ToQString(title));
}

CFStringRef CopyControlTitleAsCFString(ControlRef control) {
    QWidget* const widget = ToWidget(control);
    return widget ? CreateString(OwnText(*widget)) : nullptr;
}

void SetControlAccessibleName(ControlRef control, CFStringRef name) {
    if (QWidget* const widget = ToWidget(control)) widget->setAccessibleName(ToQString(name));
}

void SetControlAccessibleDescription(ControlRef control, CFStringRef description) {
    if (QWidget* const widget = ToWidget(control)) {
        widget->setAccessibleDescription(ToQString(description));
    }
}

void DescribeControlFault(ControlRef field, CFStringRef message) {
    DescribeFault(ToWidget(field), ToQString(message));
}

void SetControlHelpTag(ControlRef control, CFStringRef tip) {
    if (QWidget* const widget = ToWidget(control)) {
        widget->setToolTip(AsPlainText(ToQString(tip)));
    }
}

void SetControlPicture(ControlRef control, PictureRef picture) {
    if (auto* const button = qobject_cast<QAbstractButton*>(ToWidget(control))) {
        button->setIcon(picture ? MakeIcon(picture->picture) : QIcon());
    }
}

void DisposeControl(ControlRef control) {
    if (QWidget* const widget = ToWidget(control)) Dispose(*widget);
}

void ShowControl(ControlRef control) {
    if (QWidget* const widget = ToWidget(control)) widget->show();
}

void HideControl(ControlRef control) {
    if (QWidget* const widget = ToWidget(control)) widget->hide();
}

Boolean IsControlVisible(ControlRef control) {
    QWidget* const widget = ToWidget(control);
    return widget && IsShown(*widget);
}

void ActivateControl(ControlRef control) {
    if (QWidget* const widget = ToWidget(control)) {
        SetState(*widget, true, IsEnabledByItself(*widget));
    }
}

void DeactivateControl(ControlRef control) {
    if (QWidget* const widget = ToWidget(control)) {
        SetState(*widget, false, IsEnabledByItself(*widget));
    }
}

Boolean IsControlActive(ControlRef control) {
    QWidget* const widget = ToWidget(control);
    return widget && IsActiveByItself(*widget);
}

void EnableControl(ControlRef control) {
    if (QWidget* const widget = ToWidget(control)) {
        SetState(*widget, IsActiveByItself(*widget), true);
    }
}

void DisableControl(ControlRef control) {
    if (QWidget* const widget = ToWidget(control)) {
        SetState(*widget, IsActiveByItself(*widget), false);
    }
}

Boolean IsControlEnabled(ControlRef control) {
    QWidget* const widget = ToWidget(control);
    return widget && IsEnabledByItself(*widget);
}

void SetKeyboardFocus(ControlRef control) {
    QWidget* const widget = ToWidget(control);
    if (!widget) return;
    widget->setFocus(Qt::OtherFocusReason);
    // Mostly because of what stands there: the next key replaces it.
    if (QLineEdit* const line = LineOf(*widget)) line->selectAll();
}

Boolean HasKeyboardFocus(ControlRef control) {
    QWidget* const widget = ToWidget(control);
    QWidget* const focused = widget ? widget->window()->focusWidget() : nullptr;
    return focused && (focused == widget || widget->isAncestorOf(focused));
}

void ClearKeyboardFocus(WindowRef window) {
    QWidget* const widget = ToWidget(window);
    if (QWidget* const focused = widget ? widget->focusWidget() : nullptr) focused->clearFocus();
}

void SetControlNeedsDisplay(ControlRef control) {
    if (QWidget* const widget = ToWidget(control)) widget->update();
}

void SetControlPointer(ControlRef control, PointerShape shape) {
    if (QWidget* const widget = ToWidget(control)) widget->setCursor(CursorOf(shape));
}

void SimulateControlHit(ControlRef control) {
    QWidget* const widget = ToWidget(control);
    if (!widget) return;
    (void)StateOf(*widget);  // so that it reports its change
    if (auto* const button = qobject_cast<QAbstractButton*>(widget)) {
        button->click();
    } else {
        UserChanged(*widget);
    }
}
