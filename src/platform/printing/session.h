// The print session with its named data, the current printer, and where its PPD file lies.
#pragma once

#include "foundation/collections.h"
#include "foundation/object.h"
#include "foundation/url.h"
#include "kalmo/statuses.h"

#pragma GCC visibility push(default)

/// `*data` is lent, and null when nothing is stored under `name` (the status is then still 0).
/// Tickets are stored as 32-bit numbers under "PMPrintSettingsTicket", "PMPageFormatTicket" and
/// "PMPrinterInfoTicket". kPMInvalidPrintSession for a null session.
OSStatus PMSessionGetDataFromSession(PMPrintSession session, CFStringRef name, CFTypeRef* data);
/// Null `data` removes the entry.
OSStatus PMSessionSetDataInSession(PMPrintSession session, CFStringRef name, CFTypeRef data);
/// `*printer` is lent, null when there is none.
OSStatus PMSessionGetCurrentPrinter(PMPrintSession session, PMPrinter* printer);
/// The URL of the printer's description of the given type; the caller releases it. The only type is
/// "PMPPDDescriptionType"; kPMKeyNotFound otherwise or without a description. Never waits for a
/// server.
OSStatus PMPrinterCopyDescriptionURL(PMPrinter printer, CFStringRef type, CFURLRef* url);

// For the print dialog.

/// A session with three empty tickets, which it owns. The caller releases it.
[[nodiscard]] PMPrintSession PMSessionCreate();
/// `name` is the queue or file name; `ppd` a local file, or null. The caller releases it.
[[nodiscard]] PMPrinter PMPrinterCreate(CFStringRef name, CFURLRef ppd);
/// Borrowed.
[[nodiscard]] CFStringRef PMPrinterGetName(PMPrinter printer);
void PMSessionSetCurrentPrinter(PMPrintSession session, PMPrinter printer);
/// The session's ticket stored under `name`; kPMNoTicket when there is none.
[[nodiscard]] PMTicketRef PMSessionGetTicket(PMPrintSession session, CFStringRef name);

#pragma GCC visibility pop

#define kPMPrintSettingsTicket CFSTR("PMPrintSettingsTicket")
#define kPMPageFormatTicket CFSTR("PMPageFormatTicket")
#define kPMPrinterInfoTicket CFSTR("PMPrinterInfoTicket")
#define kPMPPDDescriptionType CFSTR("PMPPDDescriptionType")
