#include "walk/walker.h"

#include "support/window_walk.h"

namespace kalmo::test {
namespace {

/// No path begins with any of these, so nothing is written outside the test's own folders.
const std::vector<QString> kTexts = {
    "1",         "0",     "12",           "-5",       "99999999999", "2-4, 7",
    "3-",        "0.5",   "1,25",         "A name",   "ÄÖÜ ß é",     "日本語",
    "🖨️ x", "a@b.c", "+49 30 123*#", "%@ %d %s", "'\"<&>",      QString(300, 'x'),
    " ",         "\t"};

const std::vector<Qt::Key> kKeys = {
    Qt::Key_Tab,       Qt::Key_Backtab, Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left,
    Qt::Key_Right,     Qt::Key_Space,   Qt::Key_Return, Qt::Key_Escape,   Qt::Key_Delete,
    Qt::Key_Home,      Qt::Key_End,     Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_F1,
    Qt::Key_Backspace, Qt::Key_F4,      Qt::Key_Menu};

/// What is in front of all others for a user.
QWidget* Front() {
    if (QWidget* waiting = WaitingWindow()) return waiting;
    QWidget* last = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const bool isWindow = window->isVisible() && window->windowType() != Qt::ToolTip;
        if (isWindow && (!last || window->isActiveWindow())) last = window;
    }
    return last;
}

std::vector<QWidget*> Usable(QWidget& front) {
    std::vector<QWidget*> usable;
    for (QWidget* widget : front.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->isEnabled() && !widget->visibleRegion().isEmpty() &&
            widget->window() == &front)
            usable.push_back(widget);
    }
    return usable;
}

/// Closed as rarely as a user does who wants to get somewhere.
bool IsMain(const QWidget& window) { return window.inherits("kalmo::PrintWindow"); }

/// What ends a window.
bool IsEnd(Qt::Key key) { return key == Qt::Key_Escape || key == Qt::Key_Return; }

bool Reacts(const QWidget& widget) {
    return IsControl(widget) || qobject_cast<const QAbstractItemView*>(widget.parentWidget());
}

}  // namespace

Walker::Walker(unsigned seed, std::function<void()> open, const std::filesystem::path& log)
    : random_(seed), open_(std::move(open)), log_(log) {}

void Walker::walk(int actions) {
    left_ = actions;
    QEventLoop loop;
    end_ = &loop;
    QTimer::singleShot(0, [this] { step(); });
    loop.exec();
    end_ = nullptr;
}

void Walker::step() {
    // Asked for first: the action may run a loop of its own, which then does the next.
    if (left_-- <= 0) return leave();
    QTimer::singleShot(0, [this] { step(); });
    QWidget* front = Front();
    if (!front) {
        // The loop of a dialog that has just closed returns to the window before it goes.
        if (QThread::currentThread()->loopLevel() == 1) open_();
        return;
    }
    ++visits_[front->metaObject()->className()];
    act(*front);
}

void Walker::leave() {
    // Each window ends its own loop; what it returns to ends after it.
    QWidget* front = WaitingWindow();
    if (!front) return end_->quit();
    if (!front->close()) front->hide();
    QTimer::singleShot(0, [this] { leave(); });
}

void Walker::act(QWidget& front) {
    if (auto* files = qobject_cast<QFileDialog*>(&front)) return files->reject();
    // A list or a help page is left sooner than a dialog.
    if (front.windowType() == Qt::Popup && below(3) == 0) {
        note("end", front);
        return QTest::keyClick(&front, below(2) == 0 ? Qt::Key_Return : Qt::Key_Escape);
    }
    if (front.inherits("toolbox::HelpViewer") && below(6) == 0) {
        front.close();
        return;
    }
    struct Row {
        int share;  // of 100
        void (Walker::*action)(QWidget&);
    };
    constexpr Row kRows[] = {{38, &Walker::click},  {28, &Walker::press}, {14, &Walker::type},
                             {15, &Walker::choose}, {3, &Walker::shape},  {2, &Walker::close}};
    int chance = below(100);
    for (const Row& row : kRows) {
        if ((chance -= row.share) < 0) return (this->*row.action)(front);
    }
}

void Walker::note(const QString& action, const QWidget& on) {
    log_ << left_ << ' ' << on.window()->metaObject()->className() << " \""
         << on.window()->windowTitle().toStdString() << "\" " << on.metaObject()->className() << ' '
         << on.objectName().toStdString() << ": " << action.toStdString() << std::endl;
}

void Walker::click(QWidget& front) {
    auto usable = Usable(front);
    // Mostly what reacts.
    if (below(4) != 0) std::erase_if(usable, [](QWidget* widget) { return !Reacts(*widget); });
    QWidget* target = usable.empty() ? &front : any(usable);
    const QPoint place(below(std::max(1, target->width())), below(std::max(1, target->height())));
    const auto button = below(20) == 0 ? Qt::RightButton : Qt::LeftButton;
    note("click", *target);
    // A press may open a menu, and the pane be another's once that is left.
    const QPointer<QWidget> living = target;
    std::vector<QTest::MouseAction> events = {QTest::MousePress, QTest::MouseRelease};
    if (below(12) == 0) events.insert(events.end(), {QTest::MouseDClick, QTest::MouseRelease});
    for (const QTest::MouseAction event : events) {
        if (living) QTest::mouseEvent(event, living.data(), button, {}, place);
    }
}

void Walker::press(QWidget& front) {
    QWidget* target = front.focusWidget() ? front.focusWidget() : &front;
    if (below(4) == 0) {
        const auto letter = static_cast<Qt::Key>(Qt::Key_A + below(26));
        const auto modifier = below(3) == 0 ? Qt::ControlModifier : Qt::AltModifier;
        note(QString("modified key %1").arg(QChar(letter)), *target);
        return QTest::keyClick(target, letter, modifier);
    }
    const Qt::Key key = any(kKeys);
    if (IsEnd(key) && below(IsMain(front) ? 12 : 2) != 0) return;
    note(QString("key %1").arg(key), *target);
    QTest::keyClick(target, key);
}

void Walker::type(QWidget& front) {
    std::vector<QWidget*> fields;
    for (QWidget* widget : Usable(front)) {
        if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QPlainTextEdit*>(widget) ||
            qobject_cast<QTextEdit*>(widget))
            fields.push_back(widget);
    }
    if (fields.empty()) return press(front);
    QWidget* field = any(fields);
    note("type", *field);
    field->setFocus();
    if (below(2) == 0) QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QKeyEvent typed(QEvent::KeyPress, 0, Qt::NoModifier, any(kTexts));
    QApplication::sendEvent(field, &typed);
}

void Walker::choose(QWidget& front) {
    std::vector<QComboBox*> popups;
    for (QWidget* widget : Usable(front)) {
        auto* popup = qobject_cast<QComboBox*>(widget);
        if (popup && popup->count() > 0) popups.push_back(popup);
    }
    if (popups.empty()) return click(front);
    QComboBox* popup = any(popups);
    note("choose", *popup);
    popup->setCurrentIndex(below(popup->count()));
    Q_EMIT popup->activated(popup->currentIndex());
}

void Walker::shape(QWidget& front) {
    if (front.windowType() == Qt::Popup) return;
    note("resize", front);
    front.resize(200 + below(1400), 150 + below(1000));
}

void Walker::close(QWidget& front) {
    if (IsMain(front) && below(12) != 0) return;
    note("close", front);
    front.close();
}

}  // namespace kalmo::test
