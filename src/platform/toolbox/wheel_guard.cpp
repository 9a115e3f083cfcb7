#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QPointer>
#include <QScrollBar>

#include "toolbox/host.h"

namespace {

bool ChangesByWheel(const QWidget& widget) {
    if (qobject_cast<const QScrollBar*>(&widget)) return false;
    return qobject_cast<const QAbstractSpinBox*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractSlider*>(&widget);
}

/// A wheel that gave the focus would find the control focused.
void KeepFocusFromWheel(QWidget& widget) {
    if (ChangesByWheel(widget) && widget.focusPolicy() == Qt::WheelFocus) {
        widget.setFocusPolicy(Qt::StrongFocus);
    }
}

/// Someone who scrolls a pane must not change what the pointer happens to pass.
class WheelGuard final : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isWheel = event->type() == QEvent::Wheel;
        if (!isWheel && event->type() != QEvent::Polish) return false;
        auto* const widget = qobject_cast<QWidget*>(watched);
        if (!widget) return false;
        if (!isWheel) KeepFocusFromWheel(*widget);
        if (!isWheel || widget->hasFocus() || !ChangesByWheel(*widget)) return false;
        event->ignore();  // it goes on to the view behind
        return true;
    }
};

}  // namespace

void InstallWheelGuard() {
    static QPointer<WheelGuard> guard;
    if (guard || !qApp) return;
    guard = new WheelGuard(qApp);
    qApp->installEventFilter(guard);
    for (QWidget* widget : QApplication::allWidgets()) KeepFocusFromWheel(*widget);
}
