#include "print_dialog/summary_dialog.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTextCursor>
#include <QTextDocument>
#include <QVBoxLayout>
#include <memory>

#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr int kTextWidth = 460;
constexpr int kLeastTextHeight = 160, kMostTextHeight = 480;
constexpr int kLineGap = 4;
/// Lines that do not fit go on under the text, not under the name.
constexpr int kIndent = 16;

QTextBlockFormat LineFormat() {
    QTextBlockFormat format;
    format.setBottomMargin(kLineGap);
    format.setTextIndent(-kIndent);
    format.setLeftMargin(kIndent);
    return format;
}

QTextCharFormat NameFormat() {
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    return format;
}

}  // namespace

SummaryDialog::SummaryDialog(const JobSummary& summary, const QString& note, QWidget* parent)
    : QDialog(parent), text_(new QTextEdit(this)) {
    setWindowTitle(WindowText("Summary window title"));
    text_->setReadOnly(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setTabChangesFocus(true);
    text_->setAccessibleName(WindowText("Summary window rows"));
    text_->setAccessibleDescription(WindowText("Summary window rows description"));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kRowGap);
    column->addWidget(text_, 1);
    column->addLayout(createButtons());
    fill(summary, note);
    resize(sizeHint().expandedTo(roomForText()));
}

QLayout* SummaryDialog::createButtons() {
    auto* copyAll = new QPushButton(WindowText("Summary window copy"), this);
    auto* close = new QPushButton(WindowText("Summary window close"), this);
    copyAll->setAutoDefault(false);
    close->setDefault(true);
    connect(copyAll, &QPushButton::clicked, this, &SummaryDialog::copy);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* row = new QHBoxLayout;
    row->addWidget(copyAll);
    row->addStretch();
    row->addWidget(close);
    return row;
}

void SummaryDialog::fill(const JobSummary& summary, const QString& note) {
    QTextCursor cursor(text_->document());
    cursor.setBlockFormat(LineFormat());
    bool isFirst = true;
    const auto addLine = [&](const QString& name, const QString& text) {
        if (!isFirst) cursor.insertBlock(LineFormat());
        isFirst = false;
        if (!name.isEmpty())
            cursor.insertText(WindowText("Summary name", {name}) + ' ', NameFormat());
        cursor.insertText(text, QTextCharFormat());
    };
    if (!note.isEmpty()) addLine({}, note);
    for (const SummaryRow& row : summary.rows) {
        addLine(QString::fromStdString(row.name), QString::fromStdString(row.text));
    }
    text_->moveCursor(QTextCursor::Start);
}

void SummaryDialog::copy() { QGuiApplication::clipboard()->setText(text() + '\n'); }

QSize SummaryDialog::roomForText() const {
    // A copy: the widget's own document is laid out for the widget.
    const std::unique_ptr<QTextDocument> document(text_->document()->clone());
    document->setDefaultFont(text_->font());
    const int width = qMax(kTextWidth, 60 * fontMetrics().averageCharWidth());
    document->setTextWidth(width);
    const int around = sizeHint().height() - text_->sizeHint().height() + 2 * text_->frameWidth();
    const int height = qRound(document->size().height());
    return {width + 2 * kRowGap, qBound(kLeastTextHeight, height, kMostTextHeight) + around};
}

}  // namespace kalmo
