// Twelve panels that only keep a diary, as a module for a test bundle; and a colour panel.
//
// Panel 3 refuses its Prologue when REFUSE_PANEL_3 is set. Towards the ticket each writes its own
// number, so the last to write is what the ticket holds.
#include <cstdlib>
#include <string>

#include "foundation/string.h"
#include "kalmo/pde.h"
#include "printing/session.h"
#include "printing/ticket.h"
#include "support/test_panels.h"
#include "toolbox/controls.h"

#define EXPORTED extern "C" [[gnu::visibility("default")]]

EXPORTED kalmo::test::Diary TestPanelDiary;
kalmo::test::Diary TestPanelDiary;

namespace {

void Write(int number, const std::string& entry) {
    TestPanelDiary.push_back(std::to_string(number) + " " + entry);
}

template <int Number>
struct Panel {
    int opened = 0;
    CFStringRef title = nullptr;
    ControlRef pane = nullptr;

    static Panel& Of(PDEContext context) { return *static_cast<Panel*>(context); }

    static OSStatus Prologue(PDEContext* context, OSType* creator, CFStringRef* kind,
                             CFStringRef* title, UInt32* width, UInt32* height) {
        if (Number == 3 && std::getenv("REFUSE_PANEL_3")) return kPMInvalidPDEContext;
        auto* panel = new Panel;
        panel->title = CFStringCreateFromUTF8("Panel " + std::to_string(Number));
        *context = panel;
        *creator = 'Kshl';
        *kind = CFSTR("test");
        *title = panel->title;
        *width = *height = 0;
        return noErr;
    }
    static OSStatus Initialize(PDEContext context, UInt32*, void*, ControlRef pane,
                               PMPrintSession) {
        Of(context).pane = pane;
        Write(Number, "initialize");
        return noErr;
    }
    static OSStatus Sync(PDEContext, PMPrintSession session, Boolean direction) {
        Write(Number, direction == kSyncToTicket ? "write" : "read");
        if (direction == kSyncToTicket)
            PMTicketSetSInt32(PMSessionGetTicket(session, kPMPrintSettingsTicket), CFSTR("test"),
                              CFSTR("last writer"), Number, false);
        return noErr;
    }
    static OSStatus GetSummaryText(PDEContext, CFArrayRef* titles, CFArrayRef* values) {
        *titles = *values = nullptr;
        return noErr;
    }
    static OSStatus Open(PDEContext context) {
        Write(Number, Of(context).opened++ ? "open again" : "open");
        return noErr;
    }
    static OSStatus Close(PDEContext) { return noErr; }
    static OSStatus Terminate(PDEContext context, OSStatus status) {
        Write(Number, "terminate " + std::to_string(status));
        CFRelease(Of(context).title);
        delete &Of(context);
        return noErr;
    }

    static OSStatus Create(PDEInterfaceObject** out) {
        *out = static_cast<PDEInterfaceObject*>(std::malloc(sizeof(PDEInterfaceObject)));
        (*out)->table = static_cast<PDEInterfaceTable*>(std::malloc(sizeof(PDEInterfaceTable)));
        *(*out)->table = {nullptr, nullptr,        nullptr, Prologue, Initialize,
                          Sync,    GetSummaryText, Open,    Close,    Terminate};
        return noErr;
    }
};

}  // namespace

#define PANEL(number)                                                  \
    EXPORTED OSStatus GetTestPanel##number(PDEInterfaceObject** out) { \
        return Panel<number>::Create(out);                             \
    }
PANEL(1)
PANEL(2)
PANEL(3)
PANEL(4)
PANEL(5)
PANEL(6)
PANEL(7)
PANEL(8)
PANEL(9)
PANEL(10)
PANEL(11)
PANEL(12)

EXPORTED OSStatus GetColorOptionPanelInterface(PDEInterfaceObject** out) {
    return Panel<77>::Create(out);
}
EXPORTED OSStatus GetNoInterface(PDEInterfaceObject** out) {
    *out = nullptr;
    return noErr;
}
/// Its table lacks Sync.
EXPORTED OSStatus GetHalfAnInterface(PDEInterfaceObject** out) {
    Panel<78>::Create(out);
    (*out)->table->Sync = nullptr;
    return noErr;
}
