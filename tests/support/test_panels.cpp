// Panels that only keep a diary, as a module for a test bundle.
//
// Towards the ticket each writes its own number, so the last to write is what the ticket holds.
#include "support/test_panels.h"

#include <cstdlib>

#include "kalmo/pde.h"
#include "printing/session.h"
#include "printing/ticket.h"

#define EXPORTED extern "C" [[gnu::visibility("default")]]

EXPORTED kalmo::test::Diary TestPanelDiary;
kalmo::test::Diary TestPanelDiary;

namespace {

template <int Number>
struct Panel {
    static OSStatus Write(const std::string& entry) {
        TestPanelDiary.push_back(std::to_string(Number) + " " + entry);
        return noErr;
    }
    static OSStatus Prologue(PDEContext* context, OSType*, CFStringRef*, CFStringRef* title,
                             UInt32*, UInt32*) {
        static int record = 0;
        static const std::string name = "Panel " + std::to_string(Number);
        *context = &record;
        *title = CFStringMakeConstant(name.c_str());
        return noErr;
    }
    static OSStatus Refuse(PDEContext*, OSType*, CFStringRef*, CFStringRef*, UInt32*, UInt32*) {
        return kPMInvalidPDEContext;
    }
    static OSStatus Initialize(PDEContext, UInt32*, void*, ControlRef, PMPrintSession) {
        return noErr;
    }
    static OSStatus Sync(PDEContext, PMPrintSession session, Boolean direction) {
        if (direction == kSyncToUI) return Write("read");
        PMTicketSetSInt32(PMSessionGetTicket(session, kPMPrintSettingsTicket), CFSTR("test"),
                          CFSTR("last writer"), Number, false);
        return Write("write");
    }
    static OSStatus GetSummaryText(PDEContext, CFArrayRef*, CFArrayRef*) { return noErr; }
    static OSStatus Open(PDEContext) { return Write("open"); }
    static OSStatus Close(PDEContext) { return noErr; }
    static OSStatus Terminate(PDEContext, OSStatus) { return Write("terminate"); }
};

template <int Number>
OSStatus Create(PDEInterfaceObject** out) {
    using P = Panel<Number>;
    *out = static_cast<PDEInterfaceObject*>(std::malloc(sizeof(PDEInterfaceObject)));
    (*out)->table = static_cast<PDEInterfaceTable*>(std::malloc(sizeof(PDEInterfaceTable)));
    *(*out)->table = {nullptr, nullptr,           nullptr, P::Prologue, P::Initialize,
                      P::Sync, P::GetSummaryText, P::Open, P::Close,    P::Terminate};
    return noErr;
}

}  // namespace

EXPORTED OSStatus GetPanel1(PDEInterfaceObject** out) { return Create<1>(out); }
EXPORTED OSStatus GetPanel2(PDEInterfaceObject** out) { return Create<2>(out); }
EXPORTED OSStatus GetPanel3(PDEInterfaceObject** out) { return Create<3>(out); }
EXPORTED OSStatus GetRefusingPanel(PDEInterfaceObject** out) {
    Create<4>(out);
    (*out)->table->Prologue = Panel<4>::Refuse;
    return noErr;
}
EXPORTED OSStatus GetHalfAPanel(PDEInterfaceObject** out) {
    Create<5>(out);
    (*out)->table->Sync = nullptr;
    return noErr;
}
