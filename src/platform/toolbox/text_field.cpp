#include "toolbox/text_field.h"

#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QRegularExpression>

#include "toolbox/modal_loop.h"

namespace toolbox {

TextField::TextField(QWidget* parent, QWidget& control)
    : QLineEdit(parent), TextInput(*this, control) {}

TextInput::State TextField::state() const {
    const bool showsText = echoMode() == Normal;
    return {.isReadOnly = isReadOnly(),
            .canUndo = isUndoAvailable(),
            .canRedo = isRedoAvailable(),
            .hasSelection = hasSelectedText(),
            .canCopy = hasSelectedText() && showsText,
            .canSelectMore = !text().isEmpty() && selectedText() != text()};
}

QString TextField::cleaned(const QString& text) const {
    static const QRegularExpression ends(QStringLiteral("^[\r\n]+|[\r\n]+$"));
    static const QRegularExpression inside(QStringLiteral("\r\n|\\p{Cc}|\\p{Zl}|\\p{Zp}"));
    return QString(text).remove(ends).replace(inside, QStringLiteral(" "));
}

void TextField::edit(Edit command) {
    command == Edit::erase ? del() : RunEdit<QLineEdit>(*this, command);
}

void TextField::keyPressEvent(QKeyEvent* event) {
    event->accept();
    // Qt would delete a secret that it does not copy.
    if (event->matches(QKeySequence::Cut) && echoMode() != Normal) return;
    pressKey(*event);
}

/// Return presses the default button at once and not on its further way up, so that a handler
/// which called the rest finds it done.
void TextField::standardKey(QKeyEvent& key) {
    const QPointer<QWidget> top = window();
    QLineEdit::keyPressEvent(&key);
    if (IsReturn(key) && top) key.setAccepted(PressDefaultButton(*top));
}

void TextField::standardCompose(QInputMethodEvent& event) { QLineEdit::inputMethodEvent(&event); }

void TextField::mouseReleaseEvent(QMouseEvent* event) {
    const bool pastes = event->button() == Qt::MiddleButton && !isReadOnly() &&
                        QGuiApplication::clipboard()->supportsSelection();
    if (!pastes) {
        QLineEdit::mouseReleaseEvent(event);
        return;
    }
    deselect();
    pasteFrom(QClipboard::Selection);
}

/// A refused drop is not accepted: its source may move the text.
void TextField::dropEvent(QDropEvent* event) {
    QDragLeaveEvent ended;
    QLineEdit::dragLeaveEvent(&ended);
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    if (insertInput(event->mimeData()->text())) {
        event->acceptProposedAction();
    } else {
        event->ignore();
    }
}

void TextField::contextMenuEvent(QContextMenuEvent* event) { openEditMenu(event->globalPos()); }

void TextField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    takeFocus(*event);
}

void TextField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    takeFocus(*event);
}

}  // namespace toolbox
