#include "toolbox/host.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "toolbox/control_state.h"
#include "toolbox/field_fault.h"
#include "toolbox/help_viewer.h"
#include "toolbox/modal_loop.h"
#include "toolbox/qt_strings.h"

using namespace toolbox;

namespace {

/// Null while the active window is one that has been put away and waits to be freed: what it owned
/// would be freed with it.
QWidget* OwnerOfAlerts() {
    QWidget* const window = QApplication::activeWindow();
    return window && window->isVisible() ? window : nullptr;
}

/// Over the active window, with the texts as they are written.
void Fill(QMessageBox& box, CFStringRef header, CFStringRef message) {
    box.setWindowTitle(QApplication::applicationDisplayName());
    box.setIcon(QMessageBox::Warning);
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQString(header));
    if (auto* const headline = box.findChild<QLabel*>("qt_msgbox_label")) {
        QFont bold = headline->font();
        bold.setBold(true);
        headline->setFont(bold);
    }
    box.setInformativeText(AsPlainText(ToQString(message)));
}

void Notice(CFStringRef header, CFStringRef message) {
    const QPointer<QWidget> owner = OwnerOfAlerts();
    QMessageBox box(owner);
    Fill(box, header, message);
    const WaitingCaller caller;
    box.exec();
    // Its caller now leads back to what was wrong.
    if (owner) DescribeFaultOfFocusedField(*owner, ToQString(message));
}

bool Alert(const AlertTexts& texts) {
    QMessageBox box(OwnerOfAlerts());
    Fill(box, texts.header, texts.message);
    QPushButton* const accept =
        texts.defaultButton ? box.addButton(ToQString(texts.defaultButton), QMessageBox::AcceptRole)
                            : box.addButton(QMessageBox::Ok);
    box.setDefaultButton(accept);
    if (texts.alternateButton) {
        QPushButton* const alternate =
            box.addButton(ToQString(texts.alternateButton), QMessageBox::RejectRole);
        box.setEscapeButton(texts.alternateDestroys ? accept : alternate);
    }
    const WaitingCaller caller;
    box.exec();
    return box.clickedButton() == accept;
}

}  // namespace

ControlRef ControlFromWidget(QWidget* widget) {
    if (widget) (void)StateOf(*widget);  // from now on it reports its user's changes
    return ToControl(widget);
}

QWidget* WidgetFromControl(ControlRef control) { return ToWidget(control); }

WindowRef WindowFromWidget(QWidget* window) { return ToWindow(window); }

QWidget* WidgetFromWindow(WindowRef window) { return ToWidget(window); }

bool CallersWaitForUser() { return WaitingCaller::exists(); }

Presence WindowPresence(const HelpViewerTexts& texts) {
    const auto helpPage = [texts](CFStringRef path, CFStringRef anchor) -> OSStatus {
        return HelpViewer::Show(texts, ToQString(path), ToQString(anchor)) ? noErr : fnfErr;
    };
    return {Notice, Alert, [] { QApplication::beep(); }, helpPage, true};
}
