// Windows that hold up the program until the user has answered them.
#pragma once

#include <QEventLoop>
#include <QPointer>
#include <QWidget>
#include <chrono>

#include "toolbox/windows.h"

namespace toolbox {

/// As long as one lives, whoever has asked the user something waits further down on the stack, even
/// when the window of the question is closed already. On the UI thread.
class WaitingCaller final {
public:
    WaitingCaller() { ++count_; }
    ~WaitingCaller() { --count_; }
    WaitingCaller(const WaitingCaller&) = delete;
    WaitingCaller& operator=(const WaitingCaller&) = delete;
    [[nodiscard]] static bool exists() { return count_ > 0; }

private:
    inline static int count_ = 0;
};

/// One run of a window. Return presses its default button, Escape its cancel button; the close box
/// and, without a cancel button, Escape answer kModalCancel.
class ModalLoop final : public QObject {
public:
    explicit ModalLoop(QWidget& window);
    ~ModalLoop() override;

    /// Shows the window over `owner` (null: the active window); returns when quit, closed or
    /// destroyed. While it is `unseen` it holds up the others already.
    [[nodiscard]] SInt32 run(QWidget* owner, std::chrono::milliseconds unseen = {});
    void quit(SInt32 result);

    /// The loop that runs for `window`, null when none does.
    [[nodiscard]] static ModalLoop* Of(const QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool pressKey(int key);
    void placeOver(QWidget& owner);
    void appear();

    QPointer<QWidget> window_;
    QEventLoop loop_;
    SInt32 result_ = kModalCancel;
};

/// Clicks the window's default button if it is in sight; false when the window has none.
bool PressDefaultButton(QWidget& window);
/// 'ok  ' for the default button and 'not!' for the cancel button of a window whose loop runs.
[[nodiscard]] UInt32 CommandInModalLoop(QWidget& control);
/// What a command does that no handler wanted: 'ok  ' and 'not!' end the window's loop.
void RunStandardCommand(const QWidget& window, UInt32 command);

inline constexpr UInt32 kCommandOK = 'ok  ';
inline constexpr UInt32 kCommandCancel = 'not!';

}  // namespace toolbox
