#include "toolbox/spin_arrows_access.h"

#include <QAccessibleWidget>
#include <algorithm>

#include "toolbox/control_state.h"
#include "toolbox/spin_arrows.h"

namespace toolbox {
namespace {

class ArrowsInterface final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit ArrowsInterface(SpinArrows& arrows)
        : QAccessibleWidget(&arrows, QAccessible::SpinBox) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value) return arrows().locale().toString(arrows().value());
        return QAccessibleWidget::text(kind);
    }

    QVariant currentValue() const override { return arrows().value(); }
    QVariant minimumValue() const override { return arrows().minimum(); }
    QVariant maximumValue() const override { return arrows().maximum(); }
    QVariant minimumStepSize() const override { return arrows().stepSize(); }
    void setCurrentValue(const QVariant& value) override {
        arrows().pressOnto(static_cast<int>(
            std::clamp<qint64>(value.toLongLong(), arrows().minimum(), arrows().maximum())));
    }

    QStringList actionNames() const override {
        return QStringList{increaseAction(), decreaseAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action == increaseAction() && arrows().isEnabled()) {
            arrows().press(kControlUpButtonPart);
        } else if (action == decreaseAction() && arrows().isEnabled()) {
            arrows().press(kControlDownButtonPart);
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    [[nodiscard]] SpinArrows& arrows() const { return static_cast<SpinArrows&>(*widget()); }
};

}  // namespace

QAccessibleInterface* DescribeSpinArrows(const QString&, QObject* object) {
    auto* const arrows = qobject_cast<SpinArrows*>(object);
    return arrows ? new ArrowsInterface(*arrows) : nullptr;
}

}  // namespace toolbox
