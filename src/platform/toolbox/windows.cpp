#include "toolbox/windows.h"

#include <QDialogButtonBox>
#include <QMainWindow>
#include <QPushButton>

#include "system/presence.h"
#include "toolbox/control_state.h"
#include "toolbox/disposal.h"
#include "toolbox/interface_file.h"
#include "toolbox/modal_loop.h"
#include "toolbox/qt_strings.h"

struct OpaqueNib {
    toolbox::InterfaceFile file;
};

using namespace toolbox;

namespace {

/// Any text: which files are too long is said where files are read.
QByteArray BytesOf(CFURLRef url) {
    Owned<CFDataRef> data;
    if (!CFURLCreateDataAndPropertiesFromResource(kCFAllocatorDefault, url, data.adopt(),
                                                  nullptr)) {
        return {};
    }
    return {reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
            static_cast<qsizetype>(CFDataGetLength(data))};
}

QWidget* FindDefaultButton(QWidget& window) {
    for (auto* button : window.findChildren<QPushButton*>()) {
        if (button->isDefault()) return button;
    }
    return nullptr;
}

QWidget* FindCancelButton(QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const ControlState* const state = FindState(*widget);
        if (state && state->command == kCommandCancel) return widget;
    }
    const auto* box = window.findChild<QDialogButtonBox*>();
    return box ? box->button(QDialogButtonBox::Cancel) : nullptr;
}

}  // namespace

OSStatus CreateNibReferenceWithCFBundle(CFBundleRef bundle, CFStringRef name, IBNibRef* nib) {
    if (!bundle || !name || !nib) return paramErr;
    const auto url =
        Owned<CFURLRef>::Adopt(CFBundleCopyResourceURL(bundle, name, CFSTR("ui"), nullptr));
    if (!url) return nibNotFoundErr;
    InterfaceFile file{Owned<CFBundleRef>::Retain(bundle), ToQString(name), BytesOf(url)};
    if (!file.isWellFormed()) return nibNotFoundErr;
    *nib = new OpaqueNib{std::move(file)};
    return noErr;
}

void DisposeNibReference(IBNibRef nib) { delete nib; }

OSStatus CreateWindowFromNib(IBNibRef nib, CFStringRef name, WindowRef* out) {
    if (!nib || !name || !out) return paramErr;
    auto window = nib->file.makeWindow(ToQString(name));
    if (!window) return nibNotFoundErr;
    *out = ToWindow(window.release());
    return noErr;
}

void DisposeWindow(WindowRef window) {
    QWidget* const widget = ToWidget(window);
    if (!widget) return;
    QuitAppModalLoopForWindow(window, kModalCancel);
    Dispose(*widget);
}

void SetWindowTitleWithCFString(WindowRef window, CFStringRef title) {
    if (QWidget* const widget = ToWidget(window)) widget->setWindowTitle(ToQString(title));
}

OSStatus GetWindowDefaultButton(WindowRef window, ControlRef* button) {
    QWidget* const widget = ToWidget(window);
    if (!widget || !button) return paramErr;
    QWidget* const set = StateOf(*widget).defaultButton;
    *button = ToControl(set ? set : FindDefaultButton(*widget));
    return noErr;
}

OSStatus GetWindowCancelButton(WindowRef window, ControlRef* button) {
    QWidget* const widget = ToWidget(window);
    if (!widget || !button) return paramErr;
    QWidget* const set = StateOf(*widget).cancelButton;
    *button = ToControl(set ? set : FindCancelButton(*widget));
    return noErr;
}

OSStatus SetWindowDefaultButton(WindowRef window, ControlRef button) {
    QWidget* const widget = ToWidget(window);
    if (!widget) return paramErr;
    StateOf(*widget).defaultButton = ToWidget(button);
    if (auto* push = qobject_cast<QPushButton*>(ToWidget(button))) push->setDefault(true);
    return noErr;
}

OSStatus SetWindowCancelButton(WindowRef window, ControlRef button) {
    QWidget* const widget = ToWidget(window);
    if (!widget) return paramErr;
    StateOf(*widget).cancelButton = ToWidget(button);
    return noErr;
}

ControlRef GetWindowContentView(WindowRef window) {
    QWidget* const widget = ToWidget(window);
    if (auto* const frame = qobject_cast<QMainWindow*>(widget)) {
        if (frame->centralWidget()) return ToControl(frame->centralWidget());
    }
    return ToControl(widget);
}

void ShowNotice(CFStringRef header, CFStringRef message) {
    if (CurrentPresence().notice) CurrentPresence().notice(header, message);
}

void SysBeep() {
    if (CurrentPresence().beep) CurrentPresence().beep();
}
