// The panel's list: which pages it shows in which order, and their texts.
#include <limits>

#include "shell/base/texts.h"
#include "special_pages/special_pages_panel.h"
#include "special_pages/special_pages_summary.h"

namespace kalmo {
namespace {

Owned<CFStringRef> Number(CFStringRef format, SInt32 first, SInt32 second) {
    const auto number = [](SInt32 value) {
        return Owned<CFNumberRef>::Adopt(
            CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt32Type, &value));
    };
    const auto left = number(first), right = number(second);
    return Owned<CFStringRef>::Adopt(CFStringCreateWithFormat(
        kCFAllocatorDefault, format, CFTypeRef{left.get()}, CFTypeRef{right.get()}));
}

Owned<CFStringRef> PagesText(const SpecialPagesModel& model, const SpecialPage& page) {
    if (&page == model.now.front.get())
        return CopyText(model.bundle, CFSTR("SpecialPageSummaryFront"));
    if (&page == model.now.back.get())
        return CopyText(model.bundle, CFSTR("SpecialPageSummaryBack"));
    const auto* const exception = dynamic_cast<const ExceptionPage*>(&page);
    if (exception && exception->endPage() != page.startPage())
        return Number(CFSTR("%d-%d"), page.startPage(), exception->endPage());
    if (!exception && page.startPage() == 0)
        return CopyText(model.bundle, CFSTR("SpecialPageSummaryBefore1"));
    return Number(CFSTR("%d"), page.startPage(), 0);
}

Owned<CFStringRef> TypeText(const SpecialPagesModel& model, const SpecialPage& page) {
    if (dynamic_cast<const Cover*>(&page))
        return CopyText(model.bundle, CFSTR("SpecialPageSummaryCover"));
    return dynamic_cast<const Insert*>(&page)
               ? CopyText(model.bundle, CFSTR("SpecialPageSummaryInsert"))
               : CopyText(model.bundle, CFSTR("SpecialPageSummaryException"));
}

Owned<CFStringRef> AttributesText(const SpecialPagesModel& model, const SpecialPage& page) {
    return Owned<CFStringRef>::Adopt(CopySpecialPageSummary(page, model.bundle));
}

constexpr struct {
    OSType column;
    Owned<CFStringRef> (*text)(const SpecialPagesModel& model, const SpecialPage& page);
} kColumns[] = {
    {kPagesColumn, PagesText}, {kTypeColumn, TypeText}, {kAttributesColumn, AttributesText}};

/// Where a page stands among inserts and exceptions; a missing one stands behind all.
SInt64 PlaceOf(const SpecialPage* page) {
    return page ? page->startPage() : std::numeric_limits<SInt64>::max();
}

std::vector<SpecialPage*> InOrder(Cover* front, InsertList* inserts, ExceptionPageList* exceptions,
                                  Cover* back) {
    std::vector<SpecialPage*> pages;
    if (front) pages.push_back(front);
    CFIndex insert = 0, exception = 0;
    const auto atInsert = [&] { return inserts ? inserts->pageAtIndex(insert) : nullptr; };
    const auto atException = [&] {
        return exceptions ? exceptions->pageAtIndex(exception) : nullptr;
    };
    while (atInsert() || atException()) {
        const bool exceptionNext = atException() && PlaceOf(atException()) <= PlaceOf(atInsert());
        pages.push_back(exceptionNext ? static_cast<SpecialPage*>(atException()) : atInsert());
        ++(exceptionNext ? exception : insert);
    }
    if (back) pages.push_back(back);
    return pages;
}

}  // namespace

OSStatus SpecialPageText(ControlRef, ListItem item, OSType column, CFStringRef* text, void* data) {
    return WithoutExceptions(kListPropertyNotSupportedErr, [&]() -> OSStatus {
        const auto& context = *static_cast<const _SpecialPagesContext*>(data);
        const auto page = context.shown.find(item);
        for (const auto& row : kColumns) {
            if (row.column != column || page == context.shown.end()) continue;
            *text = row.text(context.model, *page->second).detach();
            return noErr;
        }
        return kListPropertyNotSupportedErr;
    });
}

void UpdateSpecialPagesSummary(ControlRef list, Cover* front, InsertList* inserts,
                               ExceptionPageList* exceptions, Cover* back) {
    _SpecialPagesContext* const context = CurrentSpecialPages();
    if (!context || !list) return;
    std::vector<ListItem> items;
    context->shown.clear();
    for (SpecialPage* const page : InOrder(front, inserts, exceptions, back)) {
        items.push_back(page->serial());
        context->shown.emplace(page->serial(), page);
    }
    SetListItems(list, items);
    RefreshListItems(list);
    UpdateSpecialPagesCommandButtons();
}

void ShowSpecialPages(_SpecialPagesContext& context) {
    SpecialPages& pages = context.model.now;
    UpdateSpecialPagesSummary(context.list, pages.front.get(), pages.inserts.get(),
                              pages.exceptions.get(), pages.back.get());
}

}  // namespace kalmo
