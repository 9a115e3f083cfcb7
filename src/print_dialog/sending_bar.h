// The line above the buttons: what went wrong, or how far the sending is.
#pragma once

#include <QLabel>
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
    [[nodiscard]] QString fault() const { return fault_->text(); }

private:
    QLabel* text_;
    QProgressBar* progress_;
    QLabel* fault_;
};

}  // namespace kalmo
