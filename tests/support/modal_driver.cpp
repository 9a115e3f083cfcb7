#include "support/modal_driver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDateTime>
#include <QDialog>
#include <algorithm>

namespace kalmo::test {
namespace {

constexpr int kLookEveryMs = 5;
constexpr qint64 kPatienceMs = 5000;

}  // namespace

QWidget* WaitingWindow() {
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const window = popup ? popup : QApplication::activeModalWidget();
    // What holds up the others but is not to be seen yet cannot be answered.
    return window && window->testAttribute(Qt::WA_DontShowOnScreen) ? nullptr : window;
}

void Abandon(QWidget& window) {
    if (auto* const dialog = qobject_cast<QDialog*>(&window)) {
        dialog->reject();
    } else {
        window.close();
    }
}

ModalDriver::ModalDriver() {
    connect(&timer_, &QTimer::timeout, this, &ModalDriver::look);
    timer_.start(kLookEveryMs);
}

ModalDriver::~ModalDriver() { EXPECT_TRUE(done()) << faults_.join("; ").toStdString(); }

void ModalDriver::expectPress(const QString& text) {
    expect([text](QWidget& window) {
        for (auto* each : window.findChildren<QAbstractButton*>())
            if (each->text().remove('&') == text) return each->click();
    });
}

void ModalDriver::look() {
    QWidget* const window = WaitingWindow();
    if (!window) return;
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const auto seen =
        std::ranges::find_if(seen_, [window](const Seen& entry) { return entry.window == window; });
    if (seen == seen_.end()) {
        seen_.append({window, now});
        window->installEventFilter(this);
        // Later, so that the timer can fire again: an answer may open another window.
        QTimer::singleShot(0, window, [this, window] { answer(*window); });
    } else if (now - seen->since > kPatienceMs) {
        seen->since = now;
        dismiss(*window, "stayed open");
    }
}

bool ModalDriver::eventFilter(QObject* watched, QEvent* event) {
    // The same window may be shown again, and then it asks anew.
    if (event->type() == QEvent::Hide) {
        seen_.removeIf([watched](const Seen& seen) { return seen.window == watched; });
    }
    return QObject::eventFilter(watched, event);
}

void ModalDriver::answer(QWidget& window) {
    if (answers_.empty()) {
        dismiss(window, "was not expected");
        return;
    }
    const Answer answer = std::move(answers_.front());
    answers_.pop_front();
    answer(window);
}

void ModalDriver::dismiss(QWidget& window, const QString& why) {
    faults_.append(QStringLiteral("%1 \"%2\" %3")
                       .arg(window.metaObject()->className(), window.windowTitle(), why));
    Abandon(window);
}

}  // namespace kalmo::test
