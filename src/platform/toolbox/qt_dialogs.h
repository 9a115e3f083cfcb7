// Dialogs of Qt's own, or of the desktop in their place, over a window of ours.
#pragma once

#include <QDialog>
#include <QPointer>

namespace toolbox {

/// Runs the dialog, modal to the program, until it is answered or closed, or its parent's window is
/// hidden or goes. Whether the user accepted; if not, the dialog may be gone.
[[nodiscard]] bool RunDialog(QDialog& dialog);

/// Holds a dialog that may go before its holder, with the window it stands over.
template <typename Dialog>
class DialogOver final {
public:
    /// `window` may be null.
    explicit DialogOver(QWidget* window) : dialog_(new Dialog(window)) {}
    ~DialogOver() { delete dialog_; }
    DialogOver(const DialogOver&) = delete;
    DialogOver& operator=(const DialogOver&) = delete;

    Dialog* operator->() const { return dialog_; }
    Dialog& operator*() const { return *dialog_; }
    [[nodiscard]] bool run() { return RunDialog(*dialog_); }

private:
    QPointer<Dialog> dialog_;
};

}  // namespace toolbox
