#include "toolbox/modal_loop.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHash>
#include <QKeyEvent>
#include <QTimer>
#include <QWindow>

#include "system/presence.h"
#include "toolbox/control_state.h"
#include "toolbox/interface_file.h"

namespace toolbox {
namespace {

QHash<const QWidget*, ModalLoop*>& RunningLoops() {
    static auto& loops = *new QHash<const QWidget*, ModalLoop*>;
    return loops;
}

QAbstractButton* DefaultButtonOf(QWidget& window) {
    ControlRef button = nullptr;
    GetWindowDefaultButton(ToWindow(&window), &button);
    return qobject_cast<QAbstractButton*>(ToWidget(button));
}

QAbstractButton* CancelButtonOf(QWidget& window) {
    ControlRef button = nullptr;
    GetWindowCancelButton(ToWindow(&window), &button);
    return qobject_cast<QAbstractButton*>(ToWidget(button));
}

/// Its popups and labels may have been filled since it was laid out.
void GrowToContents(QWidget& window) {
    if (!window.layout()) return;
    const QSize room = window.screen()->availableSize();
    window.resize(window.size().expandedTo(SizeForContents(window).boundedTo(room)));
}

}  // namespace

ModalLoop::ModalLoop(QWidget& window) : window_(&window) {
    RunningLoops().insert(&window, this);
    window.installEventFilter(this);
    connect(&window, &QObject::destroyed, this, [this, gone = &window] {
        RunningLoops().remove(gone);
        loop_.quit();
    });
}

ModalLoop::~ModalLoop() {
    if (window_) RunningLoops().remove(window_);
}

ModalLoop* ModalLoop::Of(const QWidget& window) { return RunningLoops().value(&window); }

SInt32 ModalLoop::run(QWidget* owner, std::chrono::milliseconds unseen) {
    const QPointer<QWidget> focus = QApplication::focusWidget();
    window_->setWindowModality(Qt::ApplicationModal);
    GrowToContents(*window_);
    if (!owner) owner = QApplication::activeWindow();
    if (!owner) owner = QApplication::activeModalWidget();  // of a program in the background
    if (owner) placeOver(*owner->window());
    if (unseen.count() > 0) {
        window_->setAttribute(Qt::WA_DontShowOnScreen);
        window_->show();
        QTimer::singleShot(unseen, this, &ModalLoop::appear);
    } else {
        appear();
    }
    {
        const WaitingCaller caller;
        loop_.exec(QEventLoop::DialogExec);
    }
    if (window_) {
        window_->hide();
        window_->setWindowModality(Qt::NonModal);
    }
    if (focus) focus->setFocus(Qt::ActiveWindowFocusReason);
    return result_;
}

void ModalLoop::appear() {
    if (window_->testAttribute(Qt::WA_DontShowOnScreen)) {
        window_->hide();
        window_->setAttribute(Qt::WA_DontShowOnScreen, false);
    }
    window_->show();
    window_->raise();
    window_->activateWindow();
}

void ModalLoop::quit(SInt32 result) {
    result_ = result;
    loop_.quit();
}

bool ModalLoop::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close) quit(kModalCancel);
    if (event->type() == QEvent::KeyPress && watched == window_) {
        if (pressKey(static_cast<QKeyEvent*>(event)->key())) return true;
    }
    return QObject::eventFilter(watched, event);
}

bool ModalLoop::pressKey(int key) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter) return PressDefaultButton(*window_);
    if (key != Qt::Key_Escape) return false;
    // Who drags something and thinks better of it does not mean the whole window.
    if (QGuiApplication::mouseButtons() != Qt::NoButton) return true;
    QAbstractButton* const button = CancelButtonOf(*window_);
    if (button && button->isVisible()) {
        button->click();
    } else {
        quit(kModalCancel);
    }
    return true;
}

void ModalLoop::placeOver(QWidget& owner) {
    window_->winId();  // makes the native window
    if (owner.windowHandle()) window_->windowHandle()->setTransientParent(owner.windowHandle());
    const QSize half = (owner.size() - window_->size()) / 2;
    window_->move(owner.pos() + QPoint(half.width(), half.height()));
}

bool PressDefaultButton(QWidget& window) {
    QAbstractButton* const button = DefaultButtonOf(window);
    if (button && button->isVisible()) button->click();
    return button;
}

UInt32 CommandInModalLoop(QWidget& control) {
    QWidget& window = *control.window();
    if (!ModalLoop::Of(window)) return 0;
    if (&control == DefaultButtonOf(window)) return kCommandOK;
    return &control == CancelButtonOf(window) ? kCommandCancel : 0;
}

void RunStandardCommand(const QWidget& window, UInt32 command) {
    ModalLoop* const loop = ModalLoop::Of(window);
    if (!loop) return;
    if (command == kCommandOK) loop->quit(kModalOK);
    if (command == kCommandCancel) loop->quit(kModalCancel);
}

}  // namespace toolbox

using namespace toolbox;

SInt32 RunAppModalLoopForWindow(WindowRef window, WindowRef owner) {
    QWidget* const widget = ToWidget(window);
    if (!widget || !CurrentPresence().modalLoopsRun || ModalLoop::Of(*widget)) return kModalCancel;
    return ModalLoop(*widget).run(ToWidget(owner));
}

void QuitAppModalLoopForWindow(WindowRef window, SInt32 result) {
    if (QWidget* const widget = ToWidget(window)) {
        if (ModalLoop* const loop = ModalLoop::Of(*widget)) loop->quit(result);
    }
}
