#include "toolbox/text_field.h"

#include <QApplication>
#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <algorithm>

#include "toolbox/event_way.h"
#include "toolbox/modal_loop.h"
#include "toolbox/qt_strings.h"

namespace toolbox {
namespace {

constexpr QChar kBackspace(8);

constexpr struct {
    QKeySequence::StandardKey key;
    char16_t character;
} kEditKeys[] = {
    {QKeySequence::Undo, 26},
    {QKeySequence::Redo, 26},
    {QKeySequence::Cut, 8},
    {QKeySequence::DeleteStartOfWord, 8},
    {QKeySequence::DeleteCompleteLine, 8},
    {QKeySequence::Delete, 127},
    {QKeySequence::DeleteEndOfWord, 127},
    {QKeySequence::DeleteEndOfLine, 127},
};

constexpr struct {
    Qt::Key key;
    char16_t character;
} kNamedKeys[] = {
    {Qt::Key_Backspace, 8}, {Qt::Key_Return, 13}, {Qt::Key_Enter, 3},
    {Qt::Key_Up, 30},       {Qt::Key_Down, 31},
};

bool IsReturn(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/// With Control, only characters that have no other key: joiners and marks of direction.
bool Types(const QKeyEvent& event) {
    if (event.text().isEmpty()) return false;
    const QChar first = event.text().front();
    if (first.category() == QChar::Other_Format) return true;
    const bool isShortcut = event.modifiers() == Qt::ControlModifier ||
                            event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    return !isShortcut && first.category() != QChar::Other_Control;
}

/// What the key types or, as a control character, does; empty for a key that does neither.
QString InputOf(const QKeyEvent& event) {
    for (const auto& row : kEditKeys) {
        if (event.matches(row.key)) return QChar(row.character);
    }
    for (const auto& row : kNamedKeys) {
        if (event.key() == row.key) return QChar(row.character);
    }
    return Types(event) ? event.text() : QString();
}

/// For a field of one line.
QString WithoutControls(QString text) {
    static const QRegularExpression ends(QStringLiteral("^[\r\n]+|[\r\n]+$"));
    static const QRegularExpression inside(QStringLiteral("\r\n|\\p{Cc}|\\p{Zl}|\\p{Zp}"));
    return text.remove(ends).replace(inside, QStringLiteral(" "));
}

/// Whether the focus only sleeps, and comes back of itself.
bool OnlyInterrupts(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

}  // namespace

TextField::TextField(QWidget* parent) : QLineEdit(parent) {
    // In a window that is not active the focus moves without a word to the field that had it.
    connect(qApp, &QApplication::focusChanged, &focusWatch_, [this](QWidget*, QWidget* now) {
        if (now && now != this && now->window() == window()) setFocused(false);
    });
}

bool TextField::input(const QString& text, const std::function<void()>& standard) {
    const auto characters = Owned<CFStringRef>::Adopt(CreateString(text));
    const QPointer<TextField> self = this;
    bool reached = false;
    OpaqueEvent event{kEventClassTextInput, kEventTextInput, this};
    event.text = characters;
    event.standard = [&] {
        if (!self) return;
        reached = true;
        standard();
    };
    SendEvent(*this, event);
    return reached;
}

bool TextField::insertInput(const QString& text) {
    const QString clean = WithoutControls(text);
    if (isReadOnly() || clean.isEmpty()) return false;
    return input(clean, [this, &clean] { insert(clean); });
}

bool TextField::pasteFrom(QClipboard::Mode clipboard) {
    return insertInput(QGuiApplication::clipboard()->text(clipboard));
}

void TextField::keyPressEvent(QKeyEvent* event) {
    event->accept();
    if (event->matches(QKeySequence::Paste)) {
        const bool fromSelection = event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
        pasteFrom(fromSelection ? QClipboard::Selection : QClipboard::Clipboard);
        return;
    }
    // Qt would delete a secret that it does not copy.
    if (event->matches(QKeySequence::Cut) && echoMode() != Normal) return;
    const QString text = isReadOnly() && !IsReturn(*event) ? QString() : InputOf(*event);
    if (text.isEmpty()) {
        QLineEdit::keyPressEvent(event);
    } else {
        input(text, [this, event] { pressKey(*event); });
    }
}

/// Return presses the default button at once and not on its further way up, so that a handler
/// which called the rest finds it done.
void TextField::pressKey(QKeyEvent& event) {
    const QPointer<QWidget> top = window();
    QLineEdit::keyPressEvent(&event);
    if (IsReturn(event) && top) event.setAccepted(PressDefaultButton(*top));
}

void TextField::inputMethodEvent(QInputMethodEvent* event) {
    const QString commit = WithoutControls(event->commitString());
    const bool removes =
        event->replacementLength() > 0 || (hasSelectedText() && !event->preeditString().isEmpty());
    if (isReadOnly() || (commit.isEmpty() && !removes)) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent clean(event->preeditString(), event->attributes());
    clean.setCommitString(commit, event->replacementStart(), event->replacementLength());
    const QPointer<TextField> self = this;
    const auto standard = [this, &clean] { QLineEdit::inputMethodEvent(&clean); };
    if (input(commit.isEmpty() ? QString(kBackspace) : commit, standard) || !self) return;
    QInputMethodEvent nothing;
    QLineEdit::inputMethodEvent(&nothing);
    QGuiApplication::inputMethod()->reset();
}

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

void TextField::contextMenuEvent(QContextMenuEvent* event) {
    OpenEditMenu(*this, event->globalPos());
}

void TextField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    setFocused(true);
}

void TextField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (!OnlyInterrupts(event->reason())) setFocused(false);
}

void TextField::setFocused(bool focused) {
    if (std::exchange(focused_, focused) == focused) return;
    OpaqueEvent event{kEventClassControl, kEventControlSetFocusPart, this};
    event.hasFocus = focused;
    SendEvent(*this, event);
}

}  // namespace toolbox

using namespace toolbox;

CFRange GetControlTextSelection(ControlRef control) {
    const auto* const field = qobject_cast<QLineEdit*>(ToWidget(control));
    if (!field) return {0, 0};
    return {field->hasSelectedText() ? field->selectionStart() : field->cursorPosition(),
            field->selectionLength()};
}

void SetControlTextSelection(ControlRef control, CFRange selection) {
    auto* const field = qobject_cast<QLineEdit*>(ToWidget(control));
    if (!field) return;
    const CFIndex length = field->text().size();
    const CFIndex start = std::clamp<CFIndex>(selection.location, 0, length);
    const CFIndex count = std::clamp<CFIndex>(selection.length, 0, length - start);
    field->setSelection(static_cast<int>(start), static_cast<int>(count));
}
