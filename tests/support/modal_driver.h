// Answers the windows and popups that hold up a test.
#pragma once

#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>

namespace kalmo::test {

/// The popup or modal window that holds up the others; null when none is to be seen.
[[nodiscard]] QWidget* WaitingWindow();
/// As its user does who wants nothing of it.
void Abandon(QWidget& window);

/// As long as it lives, each modal window or popup that appears takes the next expected answer. One
/// that nobody expected, or that its answer leaves open, is closed and named, so no test hangs.
class ModalDriver final : public QObject {
public:
    using Answer = std::function<void(QWidget& window)>;

    ModalDriver();
    /// Fails the test unless all that was expected came, and nothing else.
    ~ModalDriver() override;

    void expect(Answer answer) { answers_.push_back(std::move(answer)); }
    /// The answer is to press the button with this text.
    void expectPress(const QString& text);
    /// All that was expected came, and nothing else.
    [[nodiscard]] bool done() const { return answers_.empty() && faults_.isEmpty(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void look();
    void answer(QWidget& window);
    void dismiss(QWidget& window, const QString& why);

    struct Seen {
        QPointer<QWidget> window;
        qint64 since = 0;
    };

    QTimer timer_;
    std::deque<Answer> answers_;
    QStringList faults_;
    QList<Seen> seen_;
};

}  // namespace kalmo::test
