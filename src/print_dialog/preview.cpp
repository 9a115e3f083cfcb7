#include "print_dialog/preview.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

QString FaultText(DocumentFault fault, const QString& name) {
    switch (fault) {
        case DocumentFault::none:
            return {};
        case DocumentFault::unreadable:
            return WindowText("Document unreadable", {name});
        case DocumentFault::damaged:
            return WindowText("Document damaged", {name});
        case DocumentFault::locked:
            return WindowText("Document locked", {name});
    }
    return {};
}

QToolButton* TurnButton(QWidget* parent, const QString& name) {
    auto* button = new QToolButton(parent);
    button->setAutoRaise(true);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setToolTip(name);
    button->setAccessibleName(name);
    return button;
}

}  // namespace

Preview::Preview(Document& document, QWidget* parent)
    : QWidget(parent),
      document_(document),
      view_(new SheetView(this)),
      open_(new QPushButton(WindowText("Open..."), view_)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(view_, 1);
    column->addWidget(createTurner());

    auto* middle = new QVBoxLayout(view_);
    middle->addStretch(3);
    middle->addWidget(open_, 0, Qt::AlignHCenter);
    middle->addStretch(1);
    open_->setAutoDefault(false);

    view_->setAccessibleName(WindowText("Preview"));
    connect(view_, &SheetView::turned, this, &Preview::turnBy);
    connect(view_, &SheetView::resized, this, &Preview::requestPicture);
    connect(open_, &QPushButton::clicked, this, &Preview::openRequested);
    connect(&document_, &Document::changed, this, &Preview::showDocument);
    connect(&document_, &Document::drawn, this, [this](const QImage& picture, int request) {
        if (request != request_) return;
        view_->showPicture(picture);
        Q_EMIT painted();
    });
    showDocument();
}

QWidget* Preview::createTurner() {
    auto* row = new QWidget(this);
    back_ = TurnButton(row, WindowText("Previous sheet"));
    forward_ = TurnButton(row, WindowText("Next sheet"));
    position_ = new QLabel(row);
    position_->setAlignment(Qt::AlignCenter);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    layout->addWidget(back_);
    layout->addWidget(position_);
    layout->addWidget(forward_);
    layout->addStretch();
    connect(back_, &QToolButton::clicked, this, [this] { turnBy(-1); });
    connect(forward_, &QToolButton::clicked, this, [this] { turnBy(1); });
    pointArrows();
    return row;
}

/// Arrows stay as they are when Qt mirrors a window.
void Preview::pointArrows() {
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    back_->setArrowType(mirrored ? Qt::RightArrow : Qt::LeftArrow);
    forward_->setArrowType(mirrored ? Qt::LeftArrow : Qt::RightArrow);
}

void Preview::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) pointArrows();
}

void Preview::setSheets(const PPDPaper& paper, const JobSettings& settings, bool grey) {
    paper_ = paper;
    settings_ = settings;
    grey_ = grey;
    layout_ = SheetLayout(paper_, settings_, document_.pages());
    turnTo(current_);
}

void Preview::turnTo(int sheet) {
    current_ = std::clamp(sheet, 0, std::max(0, layout_.sheetCount() - 1));
    showSheet();
}

void Preview::turnBy(int sheets) {
    const int last = std::max(0, layout_.sheetCount() - 1);
    const int target =
        static_cast<int>(std::clamp<long long>(static_cast<long long>(current_) + sheets, 0, last));
    if (target != current_) turnTo(target);
}

void Preview::showDocument() {
    current_ = 0;
    layout_ = SheetLayout(paper_, settings_, document_.pages());
    showSheet();
    open_->setVisible(document_.state() == Document::State::none ||
                      document_.state() == Document::State::failed);
}

void Preview::showSheet() {
    view_->showSheet(layout_.sheet(current_), message());
    back_->setEnabled(current_ > 0);
    forward_->setEnabled(current_ + 1 < layout_.sheetCount());
    const bool some = layout_.sheetCount() > 0;
    position_->setText(some ? WindowText("Sheet of", {QString::number(current_ + 1),
                                                      QString::number(layout_.sheetCount())})
                            : QString());
    describe();
    requestPicture();
}

void Preview::requestPicture() {
    if (layout_.sheetCount() == 0 || view_->pixelsPerPoint() <= 0) return;
    request_ = document_.draw({layout_.sheet(current_), view_->pixelsPerPoint(), grey_});
}

QString Preview::message() const {
    if (document_.state() == Document::State::none) return WindowText("No document");
    return FaultText(document_.fault(), QString::fromStdString(document_.name()));
}

void Preview::describe() {
    QStringList pages;
    for (const PlacedPage& page : layout_.sheet(current_).pages) {
        pages << QString::number(page.page);
    }
    view_->setAccessibleDescription(
        pages.isEmpty() ? message()
                        : WindowText("Preview description", {position_->text(), pages.join(", "),
                                                             QString::fromStdString(paper_.text)}));
}

}  // namespace kalmo
