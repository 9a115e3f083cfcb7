#include "support/window_walk.h"

#include <QtWidgets>
#include <cctype>
#include <map>

#include "toolbox/host.h"

namespace kalmo::test {
namespace {

/// The field beside arrows takes Tab and the arrow keys for them.
bool IsArrows(const QWidget& widget) { return widget.inherits("toolbox::SpinArrows"); }

bool IsPicture(const QWidget& widget) { return widget.inherits("toolbox::PictureControl"); }

bool IsInnerPart(const QWidget& widget) {
    return widget.objectName().startsWith("qt_") ||
           qobject_cast<const QTabBar*>(widget.parentWidget());
}

/// A popup answers its choice when asked for its name: a label beside it has to name it. Of tabs
/// each has one.
bool HasName(QWidget& widget) {
    const auto* const tabs = qobject_cast<QTabWidget*>(&widget);
    for (int page = 0; tabs && page < tabs->count(); ++page)
        if (tabs->tabText(page).isEmpty()) return false;
    if (tabs) return true;
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

bool TakesTab(const QWidget& widget) {
    const auto* const tabs = qobject_cast<const QTabWidget*>(&widget);
    return (tabs ? tabs->tabBar()->focusPolicy() : widget.focusPolicy()) & Qt::TabFocus;
}

bool IsInFront(const QWidget& widget) {
    const QWidget* view = &widget;
    while (view && !qobject_cast<const QStackedWidget*>(view->parentWidget()))
        view = view->parentWidget();
    return !view ||
           static_cast<const QStackedWidget*>(view->parentWidget())->currentWidget() == view;
}

}  // namespace

bool IsControl(const QWidget& widget) {
    if (IsPicture(widget) || qobject_cast<const QTabWidget*>(&widget)) return true;
    if (IsInnerPart(widget) || widget.focusProxy()) return false;
    return IsArrows(widget) || qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QAbstractSpinBox*>(&widget) ||
           qobject_cast<const QLineEdit*>(&widget) ||
           qobject_cast<const QPlainTextEdit*>(&widget) || widget.inherits("toolbox::ListView") ||
           (qobject_cast<const QAbstractSlider*>(&widget) && !widget.inherits("QScrollBar"));
}

std::vector<std::string> WindowFaults(QWidget& window, Identities identities) {
    std::vector<std::string> faults;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!IsControl(*widget)) continue;
        const std::string name = NameOf(*widget);
        if (!HasName(*widget)) faults.push_back(name + " has no accessible name");
        if (identities == Identities::needed && !HasIdentity(*widget))
            faults.push_back(name + " has no identity");
        if (!IsPicture(*widget) && !IsArrows(*widget) && !TakesTab(*widget))
            faults.push_back(name + " cannot be reached with Tab");
    }
    return faults;
}

std::vector<std::string> TabJumps(QWidget& window) {
    std::vector<std::string> jumps;
    const auto place = [&window](const QWidget& widget) {
        const QRect there(widget.mapTo(&window, QPoint()), widget.size());
        return QStyle::visualRect(window.layoutDirection(), window.rect(), there);
    };
    const QWidget* before = nullptr;
    for (QWidget* next = window.nextInFocusChain(); next != &window;
         next = next->nextInFocusChain()) {
        if (!next->isVisibleTo(&window) || next->focusProxy() || !TakesTab(*next)) continue;
        const bool isOn = !before || before->isAncestorOf(next) ||
                          place(*next).top() >= place(*before).center().y() ||
                          place(*next).left() >= place(*before).right();
        if (!isOn) jumps.push_back(NameOf(*before) + " leads back to " + NameOf(*next));
        before = next;
    }
    return jumps;
}

std::vector<std::string> CutTexts(QWidget& window) {
    std::vector<std::string> cut;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<QLabel*>(widget);
        const bool wraps = label && label->wordWrap();
        const auto* tabs = qobject_cast<QTabWidget*>(widget);
        if (tabs && tabs->width() < tabs->tabBar()->sizeHint().width())
            cut.push_back(NameOf(*widget) + " has no room for its tabs");
        const bool hasText = qobject_cast<QAbstractButton*>(widget) || label;
        // What is not there yet, or behind, is laid out when it comes.
        if (!hasText || !widget->isVisibleTo(&window) || IsInnerPart(*widget)) continue;
        const QSize wanted =
            wraps ? QSize(0, label->heightForWidth(label->width())) : widget->minimumSizeHint();
        if (widget->width() < wanted.width() || widget->height() < wanted.height())
            cut.push_back(NameOf(*widget) + " is cut");
    }
    return cut;
}

void ForEachFront(QWidget& window, const std::function<void()>& visit) {
    auto* const tabs = window.findChild<QTabWidget*>();
    if (!tabs) return visit();
    for (int page = 0; page < tabs->count(); ++page) {
        tabs->setCurrentIndex(page);
        visit();
    }
}

std::vector<std::string> MnemonicTexts(QWidget& window) {
    std::vector<std::string> texts;
    const auto add = [&texts](const QString& text) {
        if (text.contains(u'&')) texts.push_back(text.toStdString());
    };
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<QLabel*>(widget);
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        const auto* tabs = qobject_cast<QTabWidget*>(widget);
        if (label && IsInFront(*label)) add(label->text());
        if (button && IsInFront(*button)) add(button->text());
        for (int page = 0; tabs && page < tabs->count(); ++page) add(tabs->tabText(page));
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
