// A print dialog as small as the pane can live in, for tests that load the plug-in.
#pragma once

#include "foundation/uuid.h"
#include "kalmo/uuids.h"
#include "printing/session.h"
#include "printing/ticket.h"
#include "support/qt_test.h"
#include "toolbox/menus.h"

namespace kalmo::test {

inline Owned<CFUUIDRef> UUID(const char* text) {
    return Owned<CFUUIDRef>::Adopt(
        CFUUIDCreateFromString(kCFAllocatorDefault, CFStringMakeConstant(text)));
}

/// A session whose printer has this PPD.
struct PrinterSession {
    explicit PrinterSession(const std::filesystem::path& ppd)
        : printer(Owned<PMPrinter>::Adopt(PMPrinterCreate(CFSTR("Test"), FileURL(ppd)))) {
        PMSessionSetCurrentPrinter(session, printer);
    }
    Owned<PMPrintSession> session = Owned<PMPrintSession>::Adopt(PMSessionCreate());
    Owned<PMPrinter> printer;
    PMTicketRef ticket = PMSessionGetTicket(session, kPMPrintSettingsTicket);
};

/// The control's widget in the window, of that kind; null when there is none.
template <typename Widget = QWidget>
Widget* FindControl(QWidget& window, OSType signature, SInt32 id) {
    ControlRef found = nullptr;
    GetControlByID(WindowFromWidget(&window), {signature, id}, &found);
    return qobject_cast<Widget*>(WidgetFromControl(found));
}

/// The item with this text; 0 when there is none.
inline UInt16 ItemOf(MenuRef menu, const char* text) {
    for (UInt16 item = CountMenuItems(menu); item > 0; --item)
        if (TakeText(CopyMenuItemTextAsCFString(menu, item)) == text) return item;
    return 0;
}

/// One dialog with the pane of a plug-in instance, from Prologue to the last Release.
struct PaneDialog : PrinterSession {
    explicit PaneDialog(void* plugIn,
                        const std::filesystem::path& ppd = SamplePPD("kalmo-office-color"))
        : PrinterSession(ppd), instance(plugIn) {
        auto* layout = new QVBoxLayout(&window);
        for (QWidget* widget : {embedder, static_cast<QWidget*>(print)}) layout->addWidget(widget);
        print->setDefault(true);
        unknown().QueryInterface(instance, CFUUIDGetUUIDBytes(UUID(kDialogExtensionInterfaceUUID)),
                                 &object);
        OSType creator = 0;
        operations().Prologue(&context, &creator, &kind, &title, &width, &height);
    }
    ~PaneDialog() {
        terminate();
        operations().Release(&object);
        unknown().Release(instance);
    }
    PaneDialog(const PaneDialog&) = delete;
    PaneDialog& operator=(const PaneDialog&) = delete;

    [[nodiscard]] const IUnknownTable& unknown() const {
        return **static_cast<const IUnknownTable**>(instance);
    }
    [[nodiscard]] const PDEInterfaceTable& operations() const {
        return *static_cast<PDEInterfaceObject*>(object)->table;
    }
    OSStatus initialize() {
        UInt32 flags = 0;
        return operations().Initialize(context, &flags, nullptr, ControlFromWidget(embedder),
                                       session);
    }
    OSStatus open() { return operations().Open(context); }
    OSStatus close() { return operations().Close(context); }
    OSStatus sync(Boolean direction) { return operations().Sync(context, session, direction); }
    void terminate() {
        if (context) operations().Terminate(std::exchange(context, nullptr), noErr);
    }
    OSStatus send(UInt32 command) {
        return SendCommandToWindow(WindowFromWidget(&window), command);
    }

    QWidget window;
    QWidget* embedder = new QWidget(&window);
    QPushButton* print = new QPushButton(&window);
    PDEContext context = nullptr;
    CFStringRef kind = nullptr, title = nullptr;
    UInt32 width = 0, height = 0;
    void *instance, *object = nullptr;
};

}  // namespace kalmo::test
