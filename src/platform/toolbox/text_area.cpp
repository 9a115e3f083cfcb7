#include "toolbox/text_area.h"

#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QRegularExpression>
#include <algorithm>

#include "toolbox/raw_keys.h"

namespace toolbox {
namespace {

// More than fits into any field's line.
constexpr qsizetype kLongestWord = 1000;

bool HasLongWord(const QString& text) {
    qsizetype length = 0;
    return std::ranges::any_of(text, [&length](QChar character) {
        length = character.isSpace() ? 0 : length + 1;
        return length > kLongestWord;
    });
}

}  // namespace

TextArea::TextArea(QWidget* parent) : QPlainTextEdit(parent), TextInput(*this, *this) {
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, [this] { wrapFor(text()); });
}

void TextArea::wrapFor(const QString& text) {
    const auto mode =
        HasLongWord(text) ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere;
    if (mode != wordWrapMode()) setWordWrapMode(mode);
}

/// To look for the end of a word, Qt reads it anew for each line: for minutes when it is long.
void TextArea::expectWordsOf(const QString& text) {
    if (HasLongWord(text)) wrapFor(text);
}

void TextArea::setText(const QString& text) {
    expectWordsOf(text);
    setPlainText(text);
}

QString TextArea::text() const {
    return document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, u'\n')
        .replace(QChar::LineSeparator, u'\n');
}

TextInput::State TextArea::state() const {
    const QTextCursor cursor = textCursor();
    const auto selected = cursor.selectionEnd() - cursor.selectionStart();
    return {.isReadOnly = isReadOnly(),
            .canUndo = !isReadOnly() && document()->isUndoAvailable(),
            .canRedo = !isReadOnly() && document()->isRedoAvailable(),
            .hasSelection = cursor.hasSelection(),
            .canCopy = cursor.hasSelection(),
            .canSelectMore = selected < document()->characterCount() - 1};
}

QString TextArea::cleaned(const QString& text) const {
    static const QRegularExpression breaks(QStringLiteral("\r\n?|\\p{Zl}|\\p{Zp}"));
    static const QRegularExpression controls(QStringLiteral("[^\\P{Cc}\n]"));
    return QString(text)
        .replace(breaks, QStringLiteral("\n"))
        .replace(controls, QStringLiteral(" "));
}

void TextArea::insertText(const QString& text) {
    expectWordsOf(text);
    insertPlainText(text);
    ensureCursorVisible();
}

void TextArea::edit(Edit command) {
    command == Edit::erase ? textCursor().removeSelectedText()
                           : RunEdit<QPlainTextEdit>(*this, command);
}

bool TextArea::event(QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QPlainTextEdit::event(event);
    SendRawKey(*this, static_cast<QKeyEvent&>(*event),
               [this, event] { QPlainTextEdit::event(event); });
    return true;
}

void TextArea::standardCompose(QInputMethodEvent& event) {
    QPlainTextEdit::inputMethodEvent(&event);
}

/// What the mouse pastes.
void TextArea::insertFromMimeData(const QMimeData* source) { insertInput(source->text()); }

/// A refused drop is not accepted: its source may move the text.
void TextArea::dropEvent(QDropEvent* event) {
    QDragLeaveEvent ended;
    QPlainTextEdit::dragLeaveEvent(&ended);
    const QTextCursor place = cursorForPosition(event->position().toPoint());
    const QString text = event->mimeData()->text();
    const bool moves = event->source() == viewport() && event->proposedAction() == Qt::MoveAction;
    if (!moves) setTextCursor(place);
    if (moves ? moveSelection(text, place) : insertInput(text)) {
        event->acceptProposedAction();
    } else {
        event->ignore();
    }
}

/// One input, which takes as much away as it adds.
bool TextArea::moveSelection(const QString& text, const QTextCursor& place) {
    const QString clean = cleaned(text);
    if (isReadOnly() || clean.isEmpty()) return false;
    return input(clean, [this, &clean, to = place]() mutable {
        to.beginEditBlock();
        textCursor().removeSelectedText();
        to.insertText(clean);
        to.endEditBlock();
        setTextCursor(to);
    });
}

void TextArea::contextMenuEvent(QContextMenuEvent* event) { openEditMenu(event->globalPos()); }

void TextArea::focusInEvent(QFocusEvent* event) {
    QPlainTextEdit::focusInEvent(event);
    takeFocus(*event);
}

void TextArea::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    takeFocus(*event);
}

}  // namespace toolbox
