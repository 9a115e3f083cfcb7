#include "special_pages/special_pages_panel.h"

#include "controls/panel_operations.h"
#include "settings/dictionary.h"
#include "settings/ticket_keys.h"
#include "special_pages/covers.h"

#define kInsertListKey CFSTR("com.kalmo.print.SpecialPages.InsertList")
#define kExceptionListKey CFSTR("com.kalmo.print.SpecialPages.ExceptionList")
#define kPagesPerSheetKey CFSTR("com.apple.print.PrintSettings.PMLayoutNUp")

namespace kalmo {
namespace {

_SpecialPagesContext* current = nullptr;

/// An empty list has no key.
void WriteList(PMTicketRef ticket, CFStringRef key, const SpecialPageList& list) {
    if (const auto array = Owned<CFArrayRef>::Adopt(list.asTicket())) {
        PMTicketSetCFArray(ticket, kPrintCreator, key, array, false);
    } else {
        PMTicketReleaseItem(ticket, key);
    }
}

/// What is no dictionary is no page.
template <typename Page>
void ReadList(PMTicketRef ticket, CFStringRef key, SpecialPageList& list) {
    list.clear();
    CFArrayRef array = nullptr;
    if (PMTicketGetCFArray(ticket, key, &array) != noErr) return;
    std::vector<Page> read;
    std::vector<const SpecialPage*> pages;
    for (CFIndex i = 0; i < CFArrayGetCount(array); ++i) {
        const auto dictionary =
            ValueOfType<CFDictionaryRef>(CFArrayGetValueAtIndex(array, i), CFDictionaryGetTypeID());
        if (dictionary) read.emplace_back(dictionary);
    }
    for (const Page& page : read) pages.push_back(&page);
    list.add(ArrayOfPages(pages));
}

std::unique_ptr<Stock> ReadJobStock(PMTicketRef ticket) {
    CFDictionaryRef stock = nullptr;
    if (PMTicketGetCFDictionary(ticket, kJobLevelStockKey, &stock) != noErr) return nullptr;
    return std::make_unique<Stock>(stock);
}

OSStatus WriteTicket(_SpecialPagesContext& context, PMTicketRef ticket) {
    SpecialPages& pages = context.model.now;
    context.ticket = ticket;
    WriteList(ticket, kInsertListKey, *pages.inserts);
    WriteList(ticket, kExceptionListKey, *pages.exceptions);
    const OSStatus status = SyncCovers(ticket, kSyncToTicket, &pages.front, &pages.back);
    UpdateSpecialPagesUI(&context);
    return status;
}

OSStatus ReadTicket(_SpecialPagesContext& context, PMTicketRef ticket) {
    SpecialPages& pages = context.model.now;
    context.ticket = ticket;
    ReadList<Insert>(ticket, kInsertListKey, *pages.inserts);
    ReadList<ExceptionPage>(ticket, kExceptionListKey, *pages.exceptions);
    context.model.jobStock = ReadJobStock(ticket);
    const OSStatus status = SyncCovers(ticket, kSyncToUI, &pages.front, &pages.back);
    ShowSpecialPages(context);
    UpdateSpecialPagesUI(&context);
    return status;
}

void Start(_SpecialPagesContext& context) { current = &context; }

void Initialize(_SpecialPagesContext& context) {
    context.model.bundle = context.bundle;
    context.model.ppd = context.ppd;
    context.model.changed = [&context] { ShowSpecialPages(context); };
}

void Finish(_SpecialPagesContext& context) {
    RemoveEventHandler(context.handler);
    if (current == &context) current = nullptr;
}

constexpr PanelParts<_SpecialPagesContext> kParts = {
    .titleKey = "SpecialPagesTitle",
    .start = Start,
    .initialize = Initialize,
    .read = ReadTicket,
    .write = WriteTicket,
    .build = BuildSpecialPages,
    .finish = Finish,
};
using Operations = PanelOperations<_SpecialPagesContext, kParts>;

/// Unlike other panels this one says which of the two is missing.
OSStatus Sync(PDEContext context, PMPrintSession session, Boolean direction) {
    if (context) return Operations::_Sync(context, session, direction);
    UpdateSpecialPagesUI(nullptr);
    return kPMInvalidPDEContext;
}

}  // namespace

_SpecialPagesContext* CurrentSpecialPages() { return current; }

bool HasLayout(PMTicketRef ticket) {
    return FlagInTicket(ticket, kPagesPerSheetKey) || FlagInTicket(ticket, kBookletLayoutKey);
}

}  // namespace kalmo

extern "C" OSStatus _GetSpecialPagesPanelInterface(PDEInterfaceObject** out) {
    using kalmo::Operations;
    return kalmo::CreatePanelInterface({.Prologue = Operations::_Prologue,
                                        .Initialize = Operations::_Initialize,
                                        .Sync = kalmo::Sync,
                                        .GetSummaryText = Operations::_GetSummaryText,
                                        .Open = Operations::_Open,
                                        .Close = Operations::_Close,
                                        .Terminate = Operations::_Terminate},
                                       out);
}
