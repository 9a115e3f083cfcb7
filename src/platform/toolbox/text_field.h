// A field for one line of text that asks before the user changes it.
#pragma once

#include <QClipboard>
#include <QLineEdit>
#include <functional>

namespace toolbox {

/// Whatever the user does to change the text, or Return, first goes out as a text input; what a
/// field of Qt does then is its standard behaviour. What comes from elsewhere than single keys
/// holds no control characters: line breaks at its ends are left out, others become spaces.
class TextField final : public QLineEdit {
    Q_OBJECT

public:
    explicit TextField(QWidget* parent = nullptr);

    /// Sends the input; whether it reached its standard behaviour. The field may be gone then.
    bool input(const QString& text, const std::function<void()>& standard);
    /// Likewise; a field that is read only, or an empty clipboard, changes nothing.
    bool pasteFrom(QClipboard::Mode clipboard);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool insertInput(const QString& text);
    void pressKey(QKeyEvent& event);
    void setFocused(bool focused);

    bool focused_ = false;  // also while the window is not the active one
    QObject focusWatch_;    // goes before the widget, whose end moves the focus
};

/// Undo, cut, paste and the like at `place`, in global coordinates.
void OpenEditMenu(TextField& field, const QPoint& place);

}  // namespace toolbox
