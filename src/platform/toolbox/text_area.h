// A field for several lines of text that asks before the user changes it.
#pragma once

#include <QPlainTextEdit>

#include "toolbox/text_input.h"

namespace toolbox {

/// Keys first go out as raw keys, then as text inputs. Line breaks are kept as line feeds, other
/// control characters that come from elsewhere become spaces. Tab leaves the field.
class TextArea final : public QPlainTextEdit, public TextInput {
    Q_OBJECT

public:
    explicit TextArea(QWidget* parent = nullptr);

    /// As it was typed: QPlainTextEdit's own would change spaces that do not break.
    [[nodiscard]] QString text() const;
    void setText(const QString& text);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override { pressKey(*event); }
    void inputMethodEvent(QInputMethodEvent* event) override { compose(*event); }
    void insertFromMimeData(const QMimeData* source) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] State state() const override;
    [[nodiscard]] QString cleaned(const QString& text) const override;
    void insertText(const QString& text) override;
    void standardKey(QKeyEvent& key) override { QPlainTextEdit::keyPressEvent(&key); }
    void standardCompose(QInputMethodEvent& event) override;
    void edit(Edit command) override;
    void wrapFor(const QString& text);
    /// Before the text is taken in; once it is, the field wraps for what it holds.
    void expectWordsOf(const QString& text);
    [[nodiscard]] bool moveSelection(const QString& text, const QTextCursor& place);
};

}  // namespace toolbox
