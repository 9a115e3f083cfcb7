// A field for one line of text that asks before the user changes it.
#pragma once

#include <QLineEdit>

#include "toolbox/text_input.h"

namespace toolbox {

/// What comes from elsewhere than single keys holds no control characters: line breaks at its ends
/// are left out, others become spaces.
class TextField : public QLineEdit, public TextInput {
    Q_OBJECT

public:
    explicit TextField(QWidget* parent = nullptr) : TextField(parent, *this) {}
    /// The line of `control`, which sends its events.
    TextField(QWidget* parent, QWidget& control);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override { compose(*event); }
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] State state() const override;
    [[nodiscard]] QString cleaned(const QString& text) const override;
    void insertText(const QString& text) override { insert(text); }
    void standardKey(QKeyEvent& key) override;
    void standardCompose(QInputMethodEvent& event) override;
    void edit(Edit command) override;
};

}  // namespace toolbox
