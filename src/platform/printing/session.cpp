#include "printing/session.h"

#include "foundation/number.h"
#include "foundation/object_private.h"
#include "printing/ticket.h"

struct PMPrinterObject final : kalmo::foundation::Object {
    PMPrinterObject(CFStringRef printerName, CFURLRef description);
    Owned<CFStringRef> name;
    Owned<CFURLRef> ppd;
};

struct PMPrintSessionObject final : kalmo::foundation::Object {
    PMPrintSessionObject();
    ~PMPrintSessionObject() override;

    Owned<CFMutableDictionaryRef> data;
    Owned<PMPrinter> printer;
    PMTicketRef tickets[3];
};

namespace {

using kalmo::foundation::As;

const kalmo::foundation::TypeRecord kPrinterType{"printer", nullptr, nullptr, nullptr};
const kalmo::foundation::TypeRecord kSessionType{"print session", nullptr, nullptr, nullptr};

PMPrintSessionObject* Session(PMPrintSession session) {
    return As<PMPrintSessionObject>(session, kSessionType);
}

}  // namespace

PMPrinterObject::PMPrinterObject(CFStringRef printerName, CFURLRef description)
    : Object(kPrinterType),
      name(Owned<CFStringRef>::Retain(printerName)),
      ppd(Owned<CFURLRef>::Retain(description)) {}

PMPrintSessionObject::PMPrintSessionObject()
    : Object(kSessionType),
      data(Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0))),
      tickets{PMTicketCreate(), PMTicketCreate(), PMTicketCreate()} {
    const CFStringRef names[] = {kPMPrintSettingsTicket, kPMPageFormatTicket, kPMPrinterInfoTicket};
    for (int i = 0; i < 3; ++i) {
        const auto number = Owned<CFNumberRef>::Adopt(
            CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt32Type, &tickets[i]));
        CFDictionarySetValue(data, names[i], number.get());
    }
}

PMPrintSessionObject::~PMPrintSessionObject() {
    for (const PMTicketRef ticket : tickets) PMTicketDispose(ticket);
}

OSStatus PMSessionGetDataFromSession(PMPrintSession session, CFStringRef name, CFTypeRef* data) {
    const PMPrintSessionObject* const found = Session(session);
    if (!found) return kPMInvalidPrintSession;
    if (!name || !data) return paramErr;
    *data = CFDictionaryGetValue(found->data, name);
    return noErr;
}

OSStatus PMSessionSetDataInSession(PMPrintSession session, CFStringRef name, CFTypeRef data) {
    const PMPrintSessionObject* const found = Session(session);
    if (!found) return kPMInvalidPrintSession;
    if (!name) return paramErr;
    if (data) {
        CFDictionarySetValue(found->data, name, data);
    } else {
        CFDictionaryRemoveValue(found->data, name);
    }
    return noErr;
}

OSStatus PMSessionGetCurrentPrinter(PMPrintSession session, PMPrinter* printer) {
    const PMPrintSessionObject* const found = Session(session);
    if (!found) return kPMInvalidPrintSession;
    if (!printer) return paramErr;
    *printer = found->printer;
    return noErr;
}

OSStatus PMPrinterCopyDescriptionURL(PMPrinter printer, CFStringRef type, CFURLRef* url) {
    const auto* const found = As<PMPrinterObject>(printer, kPrinterType);
    if (!found || !type || !url) return paramErr;
    if (!found->ppd || !CFEqual(type, kPMPPDDescriptionType)) return kPMKeyNotFound;
    *url = static_cast<CFURLRef>(CFRetain(found->ppd.get()));
    return noErr;
}

PMPrintSession PMSessionCreate() { return new PMPrintSessionObject; }

PMPrinter PMPrinterCreate(CFStringRef name, CFURLRef ppd) { return new PMPrinterObject(name, ppd); }

CFStringRef PMPrinterGetName(PMPrinter printer) {
    const auto* const found = As<PMPrinterObject>(printer, kPrinterType);
    return found ? found->name.get() : nullptr;
}

void PMSessionSetCurrentPrinter(PMPrintSession session, PMPrinter printer) {
    if (PMPrintSessionObject* const found = Session(session)) {
        found->printer = Owned<PMPrinter>::Retain(printer);
    }
}

PMTicketRef PMSessionGetTicket(PMPrintSession session, CFStringRef name) {
    CFTypeRef number = nullptr;
    SInt32 ticket = 0;
    if (PMSessionGetDataFromSession(session, name, &number) != noErr) return kPMNoTicket;
    CFNumberGetValue(static_cast<CFNumberRef>(number), kCFNumberSInt32Type, &ticket);
    return static_cast<PMTicketRef>(ticket);
}
