#include "support/window_walk.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <cctype>
#include <map>

#include "toolbox/host.h"

namespace kalmo::test {
namespace {

/// The field beside arrows takes Tab and the arrow keys for them.
bool IsArrows(const QWidget& widget) { return widget.inherits("toolbox::SpinArrows"); }

bool IsPicture(const QWidget& widget) { return widget.inherits("toolbox::PictureControl"); }

bool IsControl(const QWidget& widget) {
    if (widget.objectName().startsWith("qt_") || widget.focusProxy()) return false;
    if (IsArrows(widget)) return true;
    return qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QAbstractSpinBox*>(&widget) ||
           qobject_cast<const QLineEdit*>(&widget) ||
           qobject_cast<const QPlainTextEdit*>(&widget) || widget.inherits("toolbox::ListView") ||
           (qobject_cast<const QAbstractSlider*>(&widget) && !widget.inherits("QScrollBar"));
}

/// A popup answers its choice when asked for its name: a label beside it has to name it.
bool HasName(QWidget& widget) {
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&widget);
    if (!qobject_cast<QComboBox*>(&widget))
        return seen && !seen->text(QAccessible::Name).trimmed().isEmpty();
    for (const auto* label :
         widget.parentWidget()->findChildren<QLabel*>(Qt::FindDirectChildrenOnly)) {
        if (label->buddy() == &widget && !label->text().isEmpty()) return true;
    }
    return false;
}

bool HasIdentity(QWidget& widget) {
    ControlID id{};
    return GetControlID(ControlFromWidget(&widget), &id) == noErr && id.signature != 0;
}

std::string NameOf(const QWidget& widget) {
    return (QString(widget.metaObject()->className()) + " " + widget.objectName()).toStdString();
}

}  // namespace

std::vector<std::string> WindowFaults(QWidget& window, Identities identities) {
    std::vector<std::string> faults;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!IsControl(*widget) && !IsPicture(*widget)) continue;
        const std::string name = NameOf(*widget);
        if (!HasName(*widget)) faults.push_back(name + " has no accessible name");
        if (identities == Identities::needed && !HasIdentity(*widget))
            faults.push_back(name + " has no identity");
        if (!IsPicture(*widget) && !IsArrows(*widget) && !(widget->focusPolicy() & Qt::TabFocus))
            faults.push_back(name + " cannot be reached with Tab");
    }
    return faults;
}

std::vector<std::string> CutTexts(QWidget& window) {
    std::vector<std::string> cut;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<QLabel*>(widget);
        const bool hasText =
            qobject_cast<QAbstractButton*>(widget) || (label && !label->wordWrap());
        if (!hasText || widget->isHidden()) continue;
        const QSize wanted = widget->minimumSizeHint();
        if (widget->width() < wanted.width() || widget->height() < wanted.height())
            cut.push_back(NameOf(*widget) + " is cut");
    }
    return cut;
}

std::vector<std::string> MnemonicTexts(QWidget& window) {
    std::vector<std::string> texts;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<QLabel*>(widget);
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        const QString text = label ? label->text() : button ? button->text() : QString();
        if (text.contains(u'&')) texts.push_back(text.toStdString());
    }
    return texts;
}

std::vector<std::string> RepeatedMnemonics(const std::vector<std::string>& texts) {
    std::vector<std::string> repeated;
    std::map<int, std::string> taken;
    for (const std::string& text : texts) {
        const int letter = std::tolower(text.at(text.find('&') + 1));
        const auto [other, isNew] = taken.emplace(letter, text);
        if (!isNew) repeated.push_back(other->second + " and " + text);
    }
    return repeated;
}

}  // namespace kalmo::test
