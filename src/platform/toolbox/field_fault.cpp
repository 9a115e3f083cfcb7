#include "toolbox/field_fault.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

namespace toolbox {
namespace {

constexpr const char* kName = "fieldFault";

/// Goes with the first change of the field, and takes the description back then.
class FieldFault final : public QObject {
public:
    FieldFault(QWidget& field, const QString& message)
        : QObject(&field), field_(field), before_(field.accessibleDescription()) {
        setObjectName(kName);
        field.setAccessibleDescription(message);
    }
    void end() {
        field_.setAccessibleDescription(before_);
        delete this;
    }

private:
    QWidget& field_;
    const QString before_;
};

void EndFault(const QWidget& field) {
    QObject* const fault = field.findChild<QObject*>(kName, Qt::FindDirectChildrenOnly);
    if (fault) static_cast<FieldFault*>(fault)->end();
}

template <class Field>
bool Describe(QWidget* widget, const QString& message) {
    auto* const field = qobject_cast<Field*>(widget);
    if (!field) return false;
    EndFault(*field);
    auto* const fault = new FieldFault(*field, message);
    QObject::connect(field, &Field::textChanged, fault, &FieldFault::end);
    return true;
}

}  // namespace

void DescribeFault(QWidget* field, const QString& message) {
    if (auto* const popup = qobject_cast<QComboBox*>(field)) field = popup->lineEdit();
    if (!Describe<QLineEdit>(field, message)) Describe<QPlainTextEdit>(field, message);
}

void DescribeFaultOfFocusedField(QWidget& window, const QString& message) {
    // The window may not be active again yet: its own focus counts, not the application's.
    QTimer::singleShot(0, &window,
                       [&window, message] { DescribeFault(window.focusWidget(), message); });
}

}  // namespace toolbox
