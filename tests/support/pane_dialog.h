// A print dialog as small as the pane can live in, for tests that load the plug-in.
#pragma once

#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>

#include "foundation/bundle.h"
#include "foundation/uuid.h"
#include "kalmo/pde.h"
#include "kalmo/uuids.h"
#include "printing/session.h"
#include "printing/ticket.h"
#include "support/private_home.h"
#include "toolbox/host.h"

namespace kalmo::test {

inline std::string KalmoPPD(const std::string& manufacturer = "Kalmo") {
    return "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
           "*LanguageVersion: English\n*LanguageEncoding: UTF-8\n*PCFileName: \"TEST.PPD\"\n"
           "*Manufacturer: \"" +
           manufacturer +
           "\"\n*Product: \"(Test)\"\n*PSVersion: \"(3010.000) 0\"\n*ModelName: \"Test\"\n"
           "*ShortNickName: \"Test\"\n*NickName: \"Test\"\n"
           "*OpenUI *Resolution: PickOne\n*DefaultResolution: 600x600dpi\n"
           "*Resolution 600x600dpi: \"\"\n*Resolution 1200x1200dpi: \"\"\n*CloseUI: *Resolution\n"
           "*OpenUI *KLEconomode: PickOne\n*DefaultKLEconomode: None\n*KLEconomode None: \"\"\n"
           "*KLEconomode Draft: \"\"\n*CloseUI: *KLEconomode\n";
}

/// The plug-in object and the pane's operations, from the factory to the last Release.
class PlugIn final {
public:
    explicit PlugIn(void* instance) : instance_(instance) {
        CFUUIDBytes id = CFUUIDGetUUIDBytes(Owned<CFUUIDRef>::Adopt(
            CFUUIDCreateFromString(kCFAllocatorDefault, CFSTR(kDialogExtensionInterfaceUUID))));
        void* object = nullptr;
        unknown().QueryInterface(instance_, id, &object);
        interface_ = static_cast<PDEInterfaceObject*>(object);
    }
    ~PlugIn() {
        void* object = interface_;
        operations().Release(&object);
        unknown().Release(instance_);
    }
    PlugIn(const PlugIn&) = delete;
    PlugIn& operator=(const PlugIn&) = delete;

    [[nodiscard]] const PDEInterfaceTable& operations() const { return *interface_->table; }

private:
    [[nodiscard]] const IUnknownTable& unknown() const {
        return **static_cast<const IUnknownTable**>(instance_);
    }
    void* instance_;
    PDEInterfaceObject* interface_ = nullptr;
};

/// One dialog: its window, its session with a printer, and the pane from Prologue to Terminate.
class PaneDialog final {
public:
    explicit PaneDialog(void* instance, const std::string& ppd = KalmoPPD()) : plugIn_(instance) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(embedder, 1);
        layout->addWidget(cancel);
        layout->addWidget(print);
        SetWindowDefaultButton(WindowFromWidget(&window), ControlFromWidget(print));
        SetWindowCancelButton(WindowFromWidget(&window), ControlFromWidget(cancel));
        window.resize(600, 620);
        const auto file = MakeFolder("ppd") / "printer.ppd";
        WriteFile(file, ppd);
        const auto path = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(file.string()));
        const auto url =
            Owned<CFURLRef>::Adopt(CFURLCreateWithFileSystemPath(kCFAllocatorDefault, path, false));
        printer_ = Owned<PMPrinter>::Adopt(PMPrinterCreate(CFSTR("Test"), url));
        PMSessionSetCurrentPrinter(session, printer_);
        operations().Prologue(&context, &creator, &kind, &title, &width, &height);
    }
    ~PaneDialog() { terminate(); }
    PaneDialog(const PaneDialog&) = delete;
    PaneDialog& operator=(const PaneDialog&) = delete;

    [[nodiscard]] const PDEInterfaceTable& operations() const { return plugIn_.operations(); }
    OSStatus initialize() {
        UInt32 flags = 0;
        return operations().Initialize(context, &flags, nullptr, ControlFromWidget(embedder),
                                       session);
    }
    OSStatus open() { return operations().Open(context); }
    OSStatus close() { return operations().Close(context); }
    OSStatus sync(Boolean direction) { return operations().Sync(context, session, direction); }
    void terminate() {
        if (context) operations().Terminate(context, noErr);
        context = nullptr;
    }

    [[nodiscard]] PMTicketRef ticket() const {
        return PMSessionGetTicket(session, kPMPrintSettingsTicket);
    }
    template <typename Widget = QWidget>
    [[nodiscard]] Widget* control(OSType signature, SInt32 id) {
        ControlRef found = nullptr;
        GetControlByID(WindowFromWidget(&window), {signature, id}, &found);
        return qobject_cast<Widget*>(WidgetFromControl(found));
    }
    OSStatus send(UInt32 command) {
        return SendCommandToWindow(WindowFromWidget(&window), command);
    }

    QWidget window;
    QWidget* embedder = new QWidget(&window);
    QPushButton* print = new QPushButton("Print", &window);
    QPushButton* cancel = new QPushButton("Cancel", &window);
    Owned<PMPrintSession> session = Owned<PMPrintSession>::Adopt(PMSessionCreate());
    PDEContext context = nullptr;
    OSType creator = 0;
    CFStringRef kind = nullptr, title = nullptr;
    UInt32 width = 0, height = 0;

private:
    PlugIn plugIn_;
    Owned<PMPrinter> printer_;
};

}  // namespace kalmo::test
