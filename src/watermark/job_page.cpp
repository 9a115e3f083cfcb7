#include "watermark/job_page.h"

#include <utility>

#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "watermark/watermark_page.h"

namespace kalmo {
namespace {

constexpr SInt32 kCustomSize = 75, kLandscape = 2;
constexpr double kTenthsOfMillimetrePerInch = 254, kPointsPerInch = 72;
/// A PDF page has no longer side.
constexpr double kLongestSide = 14400;

std::optional<double> Side(CFDictionaryRef stock, CFStringRef key) {
    const auto tenths = SInt32InDictionary(stock, key);
    if (!tenths) return std::nullopt;
    return *tenths / kTenthsOfMillimetrePerInch * kPointsPerInch;
}

bool IsPage(const CGSize& page) {
    return page.width >= 1 && page.height >= 1 && page.width <= kLongestSide &&
           page.height <= kLongestSide;
}

std::optional<CGSize> CustomPaper(PMTicketRef ticket) {
    CFDictionaryRef stock = nullptr;
    PMTicketGetCFDictionary(ticket, kJobLevelStockKey, &stock);
    if (SInt32InDictionary(stock, CFSTR("Size")) != kCustomSize) return std::nullopt;
    const auto width = Side(stock, CFSTR("Width")), length = Side(stock, CFSTR("Length"));
    if (!width || !length) return std::nullopt;
    return CGSize{*width, *length};
}

std::optional<CGSize> PaperOf(PPDRef ppd, CFStringRef choice) {
    const auto size = PPDGetPaperSize(ppd, choice);
    if (!size) return std::nullopt;
    return CGSize{size->width, size->length};
}

CGSize Paper(PMTicketRef ticket, PPDRef ppd) {
    constexpr auto kKeyword = "PageSize";
    const auto chosen =
        Owned<CFStringRef>::Adopt(PPDCopyCurrentChoice(ticket, CFStringMakeConstant(kKeyword)));
    const auto usual =
        Owned<CFStringRef>::Adopt(PPDCopyDefaultChoice(ppd, CFStringMakeConstant(kKeyword)));
    for (const auto& paper : {CustomPaper(ticket), PaperOf(ppd, chosen), PaperOf(ppd, usual)})
        if (paper && IsPage(*paper)) return *paper;
    return kDefaultWatermarkPage;
}

}  // namespace

CGSize JobPage(PMPrintSession session, PPDRef ppd) {
    PMTicketRef settings = kPMNoTicket, format = kPMNoTicket;
    GetTicketFromSession(session, kPMPrintSettingsTicket, &settings);
    GetTicketFromSession(session, kPMPageFormatTicket, &format);
    CGSize page = Paper(settings, ppd);
    SInt32 orientation = 0;
    PMTicketGetSInt32(format, kOrientationKey, &orientation);
    if (orientation == kLandscape) std::swap(page.width, page.height);
    return page;
}

}  // namespace kalmo
