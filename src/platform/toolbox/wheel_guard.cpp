#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QScrollBar>

#include "toolbox/host.h"

namespace {

/// Someone who scrolls a pane must not change what the pointer happens to pass.
class WheelGuard final : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Wheel || !isGuarded(watched)) return false;
        event->ignore();  // it goes on to the view behind
        return true;
    }

private:
    static bool isGuarded(const QObject* object) {
        const auto* widget = qobject_cast<const QWidget*>(object);
        if (!widget || widget->hasFocus() || qobject_cast<const QScrollBar*>(widget)) return false;
        return qobject_cast<const QAbstractSpinBox*>(widget) ||
               qobject_cast<const QComboBox*>(widget) ||
               qobject_cast<const QAbstractSlider*>(widget);
    }
};

}  // namespace

void InstallWheelGuard() {
    static QPointer<WheelGuard> guard;
    if (guard || !qApp) return;
    guard = new WheelGuard(qApp);
    qApp->installEventFilter(guard);
}
