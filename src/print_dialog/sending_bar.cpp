#include "print_dialog/sending_bar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <algorithm>

#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"
#include "toolbox/tab_order.h"

namespace kalmo {
namespace {

constexpr qsizetype kMostRows = 6;

}  // namespace

SendingBar::SendingBar(QWidget* parent)
    : QWidget(parent),
      text_(new QLabel(this)),
      progress_(new QProgressBar(this)),
      fault_(CreateFaultLabel(this)) {
    text_->setTextFormat(Qt::PlainText);
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

void SendingBar::createDifferences() {
    differences_ = new QPlainTextEdit(this);
    differences_->setReadOnly(true);
    differences_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    differences_->setTabChangesFocus(true);
    differences_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    layout()->addWidget(differences_);
    toolbox::TabOrder(*differences_).restoreIn(*this);
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
    if (differences_) differences_->hide();
    show();
}

void SendingBar::showFault(const QString& fault) {
    text_->hide();
    progress_->hide();
    if (differences_) differences_->hide();
    fault_->setText(fault);
    fault_->setVisible(!fault.isEmpty());
    setVisible(!fault.isEmpty());
    if (!fault.isEmpty()) speak(fault_);
}

void SendingBar::showDifferences(const QStringList& lines) {
    clear();
    if (!differences_) createDifferences();
    const QString heading = WindowText("Sent otherwise");
    differences_->setPlainText(heading + '\n' + lines.join('\n'));
    differences_->setAccessibleName(heading);
    const auto rows = std::min<qsizetype>(lines.size() + 1, kMostRows) + 1;  // and a bit
    differences_->setFixedHeight(static_cast<int>(rows) * fontMetrics().lineSpacing());
    differences_->show();
    show();
    speak(differences_);
}

QString SendingBar::differences() const {
    return differences_ && !differences_->isHidden() ? differences_->toPlainText() : QString();
}

void SendingBar::speak(QWidget* about) {
    QAccessibleEvent alert(about, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace kalmo
