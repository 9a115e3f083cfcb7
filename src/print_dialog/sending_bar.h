// Above the buttons: how far the sending is, what went wrong, or what the server made of the job.
#pragma once

#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QWidget>

#include "print_dialog/job_delivery.h"

namespace kalmo {

class SendingBar final : public QWidget {
    Q_OBJECT
public:
    explicit SendingBar(QWidget* parent = nullptr);

    void showProgress(JobStage stage, int percent, const QString& destination);
    /// Also spoken by assistive technology. Empty: nothing to say any more.
    void showFault(const QString& fault);
    void clear() { showFault({}); }
    /// Below a heading, a line each; to be read in peace, selected and copied. Also spoken.
    void showDifferences(const QStringList& lines);
    [[nodiscard]] QString fault() const { return fault_->text(); }
    /// Empty while none are shown.
    [[nodiscard]] QString differences() const;

private:
    void createDifferences();
    void speak(QWidget* about);

    QLabel* text_;
    QProgressBar* progress_;
    QLabel* fault_;
    QPlainTextEdit* differences_ = nullptr;  // made when there are any
};

}  // namespace kalmo
