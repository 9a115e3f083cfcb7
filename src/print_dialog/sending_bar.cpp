#include "print_dialog/sending_bar.h"

#include <QAccessible>
#include <QHBoxLayout>

#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"

namespace kalmo {

SendingBar::SendingBar(QWidget* parent)
    : QWidget(parent),
      text_(new QLabel(this)),
      progress_(new QProgressBar(this)),
      fault_(CreateFaultLabel(this)) {
    progress_->setTextVisible(false);
    progress_->setMaximumHeight(10);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kRowGap);
    row->addWidget(text_);
    row->addWidget(progress_, 1);
    row->addWidget(fault_, 1);
    clear();
}

void SendingBar::showProgress(JobStage stage, int percent, const QString& destination) {
    const bool sending = stage == JobStage::sending;
    text_->setText(sending ? WindowText("Sending to", {destination})
                           : WindowText("Preparing document"));
    progress_->setAccessibleName(text_->text());
    progress_->setRange(0, sending ? 100 : 0);
    progress_->setValue(percent);
    text_->show();
    progress_->show();
    fault_->hide();
    show();
}

void SendingBar::showFault(const QString& fault) {
    text_->hide();
    progress_->hide();
    fault_->setText(fault);
    fault_->setVisible(!fault.isEmpty());
    setVisible(!fault.isEmpty());
    if (fault.isEmpty()) return;
    QAccessibleEvent alert(fault_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace kalmo
