#include "toolbox/qt_dialogs.h"

#include <QEvent>

#include "toolbox/modal_loop.h"

namespace toolbox {
namespace {

/// Ends a dialog when its window is put away. A window that is about to be freed leaves the dialog
/// behind, for its loop still stands on the stack.
class EndWithWindow final : public QObject {
public:
    explicit EndWithWindow(QDialog& dialog) : dialog_(dialog) {
        if (dialog.parentWidget()) dialog.parentWidget()->window()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        // Spontaneous: minimized, and coming back.
        if (event->type() == QEvent::Hide && !event->spontaneous()) {
            dialog_.reject();
            dialog_.setParent(nullptr, dialog_.windowFlags());
        }
        return false;
    }

private:
    QDialog& dialog_;
};

}  // namespace

bool RunDialog(QDialog& dialog) {
    const QPointer<QDialog> alive = &dialog;
    const EndWithWindow watch(dialog);
    const WaitingCaller caller;
    return dialog.exec() == QDialog::Accepted && alive;
}

}  // namespace toolbox
