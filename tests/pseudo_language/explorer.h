// Goes everywhere that the buttons and menus of a window lead, and looks at what comes up.
#pragma once

#include <QMenu>
#include <QPointer>
#include <QSet>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <set>
#include <string>

namespace kalmo::test {

class Explorer final : public QObject {
public:
    /// `look` sees each window each time that something in it has changed. Buttons with the texts
    /// `except` and popups with those names are left alone.
    Explorer(QSet<QString> except, std::function<void(QWidget& window)> look);

    /// Turns on, chooses and presses all there is in the window, but not what ends it. Windows that
    /// come up are explored the same way, once, then accepted: as they are, filled in, and what is
    /// still there then is cancelled.
    void explore(QWidget& window);
    /// The titles of all that came up.
    [[nodiscard]] const std::set<std::string>& found() const { return found_; }

private:
    void lookForWindow();
    void answer(QWidget& window);
    void chooseItem(QMenu& menu);
    void turnOn(QWidget& window);
    void select(QWidget& window);
    void chooseAll(QWidget& window);
    void pressAll(QWidget& window);

    const QSet<QString> except_;
    const std::function<void(QWidget&)> look_;
    QTimer timer_;
    QList<QPointer<QWidget>> open_;
    QSet<QString> explored_;
    std::set<std::string> found_;
    qsizetype menuItem_ = 0;  // to choose next
};

}  // namespace kalmo::test
