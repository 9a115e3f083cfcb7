// One panel in a window of its own, between a session's ticket and its controls.
#pragma once

#include "controls/pictures.h"
#include "settings/installable_options.h"
#include "settings/ppd_access.h"
#include "shell/base/current_session.h"
#include "shell/base/panel_interface.h"
#include "shell/base/plugin_bundle.h"
#include "support/pane_dialog.h"

namespace kalmo::test {

class PanelRig {
public:
    explicit PanelRig(OSStatus (*getInterface)(PDEInterfaceObject**), OSType signature = 'KPDE')
        : signature_(signature) {
        InstallPresence(WindowPresence());
        gBundle = bundle_;
        getInterface(&interface_);
        OSType creator = 0;
        CFStringRef kind = nullptr, title = nullptr;
        UInt32 width = 1, height = 1;
        operations().Prologue(&context, &creator, &kind, &title, &width, &height);
    }
    ~PanelRig() {
        operations().Terminate(context, noErr);
        DisposePanelInterface(interface_);
        ReleaseBundleImages();
        UnloadInstallableOptions();
        PPDCloseCurrent();
        KalmoPDETerminate(nullptr, noErr);
        gBundle = nullptr;
    }
    PanelRig(const PanelRig&) = delete;
    PanelRig& operator=(const PanelRig&) = delete;

    [[nodiscard]] const PDEInterfaceTable& operations() const { return *interface_->table; }
    OSStatus initialize() {
        KalmoPDEInitialize(nullptr, nullptr, nullptr, nullptr, printer.session);
        ControlRef pane = nullptr;
        CreateUserPaneControl(WindowFromWidget(&window), {0, 0, 500, 500}, &pane);
        return operations().Initialize(context, nullptr, nullptr, pane, printer.session);
    }
    OSStatus open() { return operations().Open(context); }
    void show() {
        ASSERT_EQ(initialize(), noErr);
        ASSERT_EQ(open(), noErr);
    }
    OSStatus close() { return operations().Close(context); }
    OSStatus sync(Boolean direction) {
        return operations().Sync(context, printer.session, direction);
    }

    void put(CFStringRef key, CFTypeRef value) {
        PMTicketSetItem(printer.ticket, CFSTR("test"), key, value, false);
    }
    /// What the ticket has once the panel has written it; borrowed, null when it is not there.
    template <typename Ref = CFDictionaryRef>
    Ref written(CFStringRef key) {
        EXPECT_EQ(sync(kSyncToTicket), noErr);
        CFTypeRef item = nullptr;
        PMTicketGetItem(printer.ticket, key, &item);
        return static_cast<Ref>(item);
    }
    void choose(CFStringRef keyword, CFStringRef choice) {
        PPDSetCurrentChoice(printer.ticket, keyword, choice);
    }
    [[nodiscard]] std::string choice(CFStringRef keyword) const {
        return CFStringToUTF8(
            Owned<CFStringRef>::Adopt(PPDCopyCurrentChoice(printer.ticket, keyword)));
    }
    template <typename Widget = QWidget>
    Widget* control(SInt32 id) {
        return FindControl<Widget>(window, signature_, id);
    }
    void pick(SInt32 popup, const QString& text) { Pick(*control<QComboBox>(popup), text); }
    std::string shown(SInt32 popup) {
        return control<QComboBox>(popup)->currentText().toStdString();
    }

private:
    // Before the panel and its window, which use them.
    Owned<CFBundleRef> bundle_ = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    PDEInterfaceObject* interface_ = nullptr;
    OSType signature_;

public:
    PrinterSession printer{SamplePPD("kalmo-office-color")};
    PDEContext context = nullptr;
    QWidget window;
    ModalDriver driver;
};

}  // namespace kalmo::test
