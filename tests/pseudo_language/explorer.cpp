#include "pseudo_language/explorer.h"

#include <QtTest>
#include <QtWidgets>

#include "support/modal_driver.h"
#include "support/window_walk.h"

namespace kalmo::test {
namespace {

constexpr int kLookEveryMs = 2;
/// Lists of fonts and the like: the first items say it all.
constexpr int kMostItems = 12;

/// The children that can be used now; a press may delete any of them.
template <typename Widget>
QList<QPointer<Widget>> Usable(QWidget& window) {
    QList<QPointer<Widget>> usable;
    for (Widget* each : window.findChildren<Widget*>())
        if (each->isVisibleTo(&window) && each->isEnabled()) usable.append(each);
    return usable;
}

/// Those of Qt, which ask for a file or a color.
bool IsOfQt(const QWidget& window) {
    return window.inherits("QFileDialog") || window.inherits("QColorDialog");
}

bool IsChoice(const QAbstractButton& button) {
    return qobject_cast<const QRadioButton*>(&button) || qobject_cast<const QCheckBox*>(&button);
}

/// OK and Cancel are for the end.
bool Ends(const QAbstractButton& button) {
    const auto* const pushed = qobject_cast<const QPushButton*>(&button);
    return (pushed && pushed->isDefault()) || button.property("command").toString() == "not!";
}

/// Of the menu, and what leads on in those that open from it.
QList<QAction*> Items(const QMenu& menu) {
    QList<QAction*> items;
    for (QAction* action : menu.actions()) {
        if (!action->menu()) items.append(action);
        for (QAction* further : action->menu() ? Items(*action->menu()) : QList<QAction*>())
            if (further->text().contains(u'…')) items.append(further);
    }
    return items;
}

/// Nothing happens in a window that has closed.
void PressDefault(const QPointer<QWidget>& window) {
    if (!window || !window->isVisible()) return;
    for (const auto& button : Usable<QPushButton>(*window)) {
        if (button->isDefault()) return button->click();
    }
}

/// Digits serve as a name, a number, a page and a passcode.
void FillIn(const QPointer<QWidget>& window) {
    if (!window || !window->isVisible()) return;
    for (const auto& line : Usable<QLineEdit>(*window))
        if (line && line->text().isEmpty()) QTest::keyClicks(line, "1234");
}

}  // namespace

Explorer::Explorer(QSet<QString> except, std::function<void(QWidget& window)> look)
    : except_(std::move(except)), look_(std::move(look)) {
    connect(&timer_, &QTimer::timeout, this, &Explorer::lookForWindow);
    timer_.start(kLookEveryMs);
}

void Explorer::explore(QWidget& window) {
    const QPointer<QWidget> still = &window;
    look_(window);
    ForEachFront(window, [&] {
        // What is chosen can switch off what can be pressed.
        for (const auto step : {&Explorer::pressAll, &Explorer::turnOn, &Explorer::select,
                                &Explorer::pressAll, &Explorer::chooseAll, &Explorer::pressAll})
            if (still && still->isVisible()) (this->*step)(window);
    });
}

void Explorer::lookForWindow() {
    QWidget* const window = WaitingWindow();
    open_.removeAll(nullptr);
    if (!window || open_.contains(window)) return;
    open_.append(window);
    // Later, so that the timer can fire again: the window may bring up others.
    QTimer::singleShot(0, window, [this, window] { answer(*window); });
}

void Explorer::answer(QWidget& window) {
    const QPointer<QWidget> still = &window;
    const QString title = window.windowTitle();
    found_.insert(title.toStdString());
    const bool isNew = !explored_.contains(title);
    explored_.insert(title);
    auto* const menu = qobject_cast<QMenu*>(&window);
    if (menu || !isNew) look_(window);
    if (menu) {
        chooseItem(*menu);
    } else if (isNew && !IsOfQt(window)) {
        explore(window);
        PressDefault(still);
        FillIn(still);
        PressDefault(still);
    }
    if (still && still->isVisible()) Abandon(window);
    if (still) open_.removeAll(still);
}

void Explorer::chooseItem(QMenu& menu) {
    QAction* const action = Items(menu).value(menuItem_);
    menu.close();
    if (action && action->isEnabled()) action->trigger();
}

void Explorer::turnOn(QWidget& window) {
    for (const auto& button : Usable<QAbstractButton>(window)) {
        if (!button || !IsChoice(*button) || button->isChecked()) continue;
        button->click();
        look_(window);
    }
}

void Explorer::select(QWidget& window) {
    for (const auto& view : Usable<QAbstractItemView>(window)) {
        const auto isList = view && !view->parent()->inherits("QComboBoxPrivateContainer");
        if (isList && view->model()) view->setCurrentIndex(view->model()->index(0, 0));
    }
    look_(window);
}

void Explorer::chooseAll(QWidget& window) {
    const QPointer<QWidget> still = &window;
    for (const auto& combo : Usable<QComboBox>(window)) {
        if (combo && except_.contains(combo->objectName())) continue;
        for (int item = 0; combo && item < std::min(combo->count(), kMostItems); ++item) {
            const auto* items = qobject_cast<QStandardItemModel*>(combo->model());
            if (items && !items->item(item)->isEnabled()) continue;
            combo->setCurrentIndex(item);
            Q_EMIT combo->activated(item);
            if (!still) return;
            look_(window);
        }
    }
}

void Explorer::pressAll(QWidget& window) {
    const QPointer<QWidget> still = &window;
    for (const auto& button : Usable<QAbstractButton>(window)) {
        if (!button || !button->isEnabled() || IsChoice(*button) || Ends(*button)) continue;
        if (except_.contains(button->text())) continue;
        const auto* const pushed = qobject_cast<QPushButton*>(button);
        menuItem_ = 0;
        do {
            button->click();
            if (!still || !still->isVisible()) return;
            look_(window);
        } while (button && pushed && pushed->menu() && ++menuItem_ < Items(*pushed->menu()).size());
    }
}

}  // namespace kalmo::test
