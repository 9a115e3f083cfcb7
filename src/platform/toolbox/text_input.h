// What fields have in common that ask before the user changes their text.
#pragma once

#include <QClipboard>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QWidget>
#include <functional>

namespace toolbox {

/// Whatever the user does to change the text, or Return, first goes out as a text input; what a
/// field of Qt does then is its standard behaviour. A base of fields, beside Qt's.
class TextInput {
public:
    TextInput(const TextInput&) = delete;
    TextInput& operator=(const TextInput&) = delete;

    /// Sends the input; whether it reached its standard behaviour. The field may be gone then.
    bool input(const QString& text, const std::function<void()>& standard);
    /// Likewise, to insert the text; a field that is read only, or no text, changes nothing.
    bool insertInput(const QString& text);
    bool pasteFrom(QClipboard::Mode clipboard);

protected:
    enum class Edit { undo, redo, cut, copy, paste, erase, selectAll };
    struct State {
        bool isReadOnly, canUndo, canRedo, hasSelection, canCopy, canSelectMore;
    };

    /// `control` sends the events: the field or what it is a part of.
    TextInput(QWidget& field, QWidget& control);
    virtual ~TextInput() = default;

    /// The commands that all fields of Qt name alike.
    template <typename Field>
    static void RunEdit(Field& field, Edit command);

    void pressKey(QKeyEvent& key);
    void compose(QInputMethodEvent& event);
    /// Tells when the focus has come or gone, not when only the window's did.
    void takeFocus(const QFocusEvent& event);
    /// Undo, cut, paste and the like at `place`, in global coordinates.
    void openEditMenu(const QPoint& place);

private:
    friend struct EditMenuRow;

    [[nodiscard]] virtual State state() const = 0;
    /// The text as the field can hold it.
    [[nodiscard]] virtual QString cleaned(const QString& text) const = 0;
    /// What Qt does.
    virtual void insertText(const QString& text) = 0;
    virtual void standardKey(QKeyEvent& key) = 0;
    virtual void standardCompose(QInputMethodEvent& event) = 0;
    virtual void edit(Edit command) = 0;

    void setFocused(bool focused);

    QWidget& field_;
    QWidget& control_;
    bool focused_ = false;  // also while the window is not the active one
    QObject focusWatch_;    // goes before the widget, whose end moves the focus
};

template <typename Field>
void TextInput::RunEdit(Field& field, Edit command) {
    if (command == Edit::undo) field.undo();
    if (command == Edit::redo) field.redo();
    if (command == Edit::cut) field.cut();
    if (command == Edit::copy) field.copy();
    if (command == Edit::selectAll) field.selectAll();
}

/// What the key types or, as a control character, does; empty for a key that does neither.
[[nodiscard]] QString InputOf(const QKeyEvent& key);
[[nodiscard]] inline bool IsReturn(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

}  // namespace toolbox
