#include "print_dialog/pages_choice.h"

#include <QGridLayout>
#include <limits>

#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"

namespace kalmo {

PagesChoice::PagesChoice(QWidget* parent)
    : QWidget(parent),
      all_(new QRadioButton(WindowText("All pages"), this)),
      range_(new QRadioButton(WindowText("Range"), this)),
      text_(new QLineEdit(this)),
      message_(CreateFaultLabel(this)) {
    text_->setAccessibleName(WindowText("Page range"));
    text_->setPlaceholderText(WindowText("Page range example"));
    all_->setChecked(true);
    for (QRadioButton* button : {all_, range_}) {
        button->setAccessibleDescription(WindowText("Pages:"));
    }

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(6);
    layout->setColumnStretch(1, 1);
    layout->addWidget(all_, 0, 0, 1, 2);
    layout->addWidget(range_, 1, 0);
    layout->addWidget(text_, 1, 1);
    layout->addWidget(message_, 2, 0, 1, 2);

    connect(text_, &QLineEdit::textEdited, range_, [this] { range_->setChecked(true); });
    connect(text_, &QLineEdit::textChanged, this, &PagesChoice::check);
    connect(text_, &QLineEdit::editingFinished, this, [this] { tell(!pages()); });
    connect(range_, &QRadioButton::toggled, this, &PagesChoice::check);
    connect(range_, &QRadioButton::clicked, text_, qOverload<>(&QWidget::setFocus));
}

void PagesChoice::setPageCount(int pageCount) {
    pageCount_ = pageCount;
    check();
}

void PagesChoice::setPages(std::vector<PageRange> pages) {
    text_->setText(QString::fromStdString(PageRangesText(pages)));
    (pages.empty() ? all_ : range_)->setChecked(true);
}

std::optional<std::vector<PageRange>> PagesChoice::pages() const {
    if (all_->isChecked()) return std::vector<PageRange>{};
    const int count = pageCount_ > 0 ? pageCount_ : std::numeric_limits<int>::max();
    return ParsePageRanges(text_->text().toStdString(), count);
}

void PagesChoice::check() {
    // An empty field is not yet a mistake, until it is left.
    const bool isLeft = !message_->isHidden() && !text_->hasFocus();
    tell(!pages() && (isLeft || !text_->text().trimmed().isEmpty()));
    Q_EMIT changed();
}

void PagesChoice::tell(bool wrong) {
    const QString fault =
        wrong ? WindowText("Page range wrong", {QString::number(std::max(pageCount_, 1))})
              : QString();
    message_->setText(fault);
    message_->setVisible(wrong);
    text_->setAccessibleDescription(fault);
}

}  // namespace kalmo
