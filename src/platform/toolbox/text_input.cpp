#include "toolbox/text_input.h"

#include <QApplication>
#include <QInputMethod>
#include <utility>

#include "toolbox/event_way.h"
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

/// With Control, only characters that have no other key: joiners and marks of direction.
bool Types(const QKeyEvent& key) {
    if (key.text().isEmpty()) return false;
    const QChar first = key.text().front();
    if (first.category() == QChar::Other_Format) return true;
    const bool isShortcut = key.modifiers() == Qt::ControlModifier ||
                            key.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    return !isShortcut && first.category() != QChar::Other_Control;
}

/// Whether the focus only sleeps, and comes back of itself.
bool OnlyInterrupts(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

}  // namespace

QString InputOf(const QKeyEvent& key) {
    for (const auto& row : kEditKeys) {
        if (key.matches(row.key)) return QChar(row.character);
    }
    for (const auto& row : kNamedKeys) {
        if (key.key() == row.key) return QChar(row.character);
    }
    return Types(key) ? key.text() : QString();
}

TextInput::TextInput(QWidget& field, QWidget& control) : field_(field), control_(control) {
    // In a window that is not active the focus moves without a word to the field that had it.
    QObject::connect(qApp, &QApplication::focusChanged, &focusWatch_,
                     [this](QWidget*, QWidget* now) {
                         if (now && now != &control_ && now->window() == control_.window()) {
                             setFocused(false);
                         }
                     });
}

bool TextInput::input(const QString& text, const std::function<void()>& standard) {
    const auto characters = Owned<CFStringRef>::Adopt(CreateString(text));
    const QPointer<QWidget> alive = &field_;
    bool reached = false;
    OpaqueEvent event{kEventClassTextInput, kEventTextInput, &control_};
    event.text = characters;
    event.standard = [&] {
        if (!alive) return;
        reached = true;
        standard();
    };
    SendEvent(control_, event);
    return reached;
}

bool TextInput::insertInput(const QString& text) {
    const QString clean = cleaned(text);
    if (state().isReadOnly || clean.isEmpty()) return false;
    return input(clean, [this, &clean] { insertText(clean); });
}

bool TextInput::pasteFrom(QClipboard::Mode clipboard) {
    return insertInput(QGuiApplication::clipboard()->text(clipboard));
}

void TextInput::pressKey(QKeyEvent& key) {
    key.accept();
    if (key.matches(QKeySequence::Paste)) {
        const bool fromSelection = key.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
        pasteFrom(fromSelection ? QClipboard::Selection : QClipboard::Clipboard);
        return;
    }
    const QString text = state().isReadOnly && !IsReturn(key) ? QString() : InputOf(key);
    if (text.isEmpty()) {
        standardKey(key);
    } else {
        input(text, [this, &key] { standardKey(key); });
    }
}

void TextInput::compose(QInputMethodEvent& event) {
    const QString commit = cleaned(event.commitString());
    const bool removes =
        event.replacementLength() > 0 || (state().hasSelection && !event.preeditString().isEmpty());
    if (state().isReadOnly || (commit.isEmpty() && !removes)) return standardCompose(event);
    QInputMethodEvent clean(event.preeditString(), event.attributes());
    clean.setCommitString(commit, event.replacementStart(), event.replacementLength());
    const QPointer<QWidget> alive = &field_;
    const auto standard = [this, &clean] { standardCompose(clean); };
    if (input(commit.isEmpty() ? QString(kBackspace) : commit, standard) || !alive) return;
    QInputMethodEvent nothing;
    standardCompose(nothing);
    QGuiApplication::inputMethod()->reset();
}

void TextInput::takeFocus(const QFocusEvent& event) {
    if (event.gotFocus()) {
        setFocused(true);
    } else if (!OnlyInterrupts(event.reason())) {
        setFocused(false);
    }
}

void TextInput::setFocused(bool focused) {
    if (std::exchange(focused_, focused) == focused) return;
    OpaqueEvent event{kEventClassControl, kEventControlSetFocusPart, &control_};
    event.hasFocus = focused;
    SendEvent(control_, event);
}

}  // namespace toolbox
