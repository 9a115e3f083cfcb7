#include "special_pages/special_pages_summary.h"

#include "paper_output/stock/stock_summary.h"
#include "settings/dictionary.h"
#include "settings/setting_maps.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

/// Null for a value that the map does not have.
Owned<CFStringRef> MapText(CFBundleRef bundle, const SettingMap* map, SInt32 value) {
    const CFStringRef key = LocalizedKeyForTicketValue(map, value);
    return key ? CopyText(bundle, key) : Owned<CFStringRef>();
}

Owned<CFStringRef> PlexText(CFBundleRef bundle, const ExceptionPage& exception) {
    return exception.plex() == kUnset ? Owned<CFStringRef>()
                                      : MapText(bundle, PlexMap, exception.plex());
}

Owned<CFStringRef> NameText(CFBundleRef bundle, const Stock& stock) {
    if (CFStringGetLength(stock.customName()) == 0) return {};
    const auto label = CopyText(bundle, CFSTR("Paper Name Label"));
    return Owned<CFStringRef>::Adopt(CFStringCreateWithFormat(kCFAllocatorDefault, CFSTR("%@ %@"),
                                                              label.get(), stock.customName()));
}

Owned<CFStringRef> QuantityText(CFBundleRef bundle, const Insert& insert, CFStringRef format) {
    const auto label = CopyText(bundle, CFSTR("InsertSummaryQuantity"));
    const auto quantity = CreateNumber(insert.quantity());
    return Owned<CFStringRef>::Adopt(
        CFStringCreateWithFormat(kCFAllocatorDefault, format, label.get(), quantity.get()));
}

/// What is said of the kind of page.
Owned<CFStringRef> KindText(CFBundleRef bundle, const SpecialPage& page) {
    if (const auto* cover = dynamic_cast<const Cover*>(&page))
        return MapText(bundle, CoverSidesImagedMap, cover->sidesImaged());
    if (const auto* insert = dynamic_cast<const Insert*>(&page))
        return QuantityText(bundle, *insert, CFSTR("%@ [%d]"));
    if (const auto* exception = dynamic_cast<const ExceptionPage*>(&page))
        return PlexText(bundle, *exception);
    return {};
}

void AddShortened(TextParts* parts, CFStringRef text) {
    if (text) parts->add(CopyShortened(text, kLongestStockText));
}

/// Paper from a tray is told apart by what it is, paper from the inserter by where it comes from.
void AddPaper(TextParts* parts, CFBundleRef bundle, const Stock& stock) {
    if (stock.source() == kStockSourceInserter) parts->add(CopyInserterName(bundle));
    if (stock.source() != kUnset) return;
    parts->add(CopyPrinterText(CFSTR("PageSize"), stock.size()));
    AddShortened(parts, CopyStockColorText(stock));
    AddShortened(parts, CopyStockTypeText(bundle, stock, MissingCount::shown));
}

CFStringRef WithStock(CFBundleRef bundle, CFStringRef first, const Stock& stock,
                      JobContext context) {
    TextParts parts;
    parts.add(first);
    parts.add(Owned<CFStringRef>::Adopt(GenerateStockSummary(bundle, context, stock, CFSTR(", "))));
    return parts.joined(CFSTR(";  "));
}

}  // namespace

CFStringRef CopySpecialPageSummary(const SpecialPage& page, CFBundleRef bundle) {
    TextParts parts;
    AddShortened(&parts, NameText(bundle, page.stock()));
    parts.add(KindText(bundle, page));
    AddPaper(&parts, bundle, page.stock());
    return parts.joined(CFSTR("; "));
}

CFStringRef CreateInsertAttributesDescription(CFBundleRef bundle, const Insert& insert) {
    return WithStock(bundle, QuantityText(bundle, insert, CFSTR("%@ %d")), insert.stock(),
                     JobContext::insert);
}

CFStringRef CreateExceptionAttributesDescription(CFBundleRef bundle,
                                                 const ExceptionPage& exception) {
    return WithStock(bundle, PlexText(bundle, exception), exception.stock(), JobContext::exception);
}

}  // namespace kalmo
