#include "special_pages/special_page.h"

#include "settings/dictionary.h"
#include "settings/ticket.h"

namespace kalmo {
namespace {

Stock StockOf(CFDictionaryRef page) {
    const CFDictionaryRef stock = DictionaryInDictionary(page, CFSTR("Stock"));
    return stock ? Stock(stock) : Stock();
}

#define kImageShiftKey CFSTR("com.kalmo.print.ImageShiftOptionsPage")

_IS_Options ImageShiftOf(CFDictionaryRef page) {
    _IS_Options options;
    ImageShiftInitialize(nullptr, nullptr, &options);
    const CFDictionaryRef shift = DictionaryInDictionary(page, kImageShiftKey);
    if (shift) ImageShiftSetOptionsFromTicket(shift, &options);
    return options;
}

SInt32 OptionalNumber(CFDictionaryRef page, CFStringRef key) {
    return SInt32InDictionary(page, key).value_or(kUnset);
}

void WriteOptionalNumber(CFMutableDictionaryRef ticket, CFStringRef key, SInt32 value) {
    if (value != kUnset) WriteTicketValue(ticket, key, value);
}

}  // namespace

SpecialPage::Serial::Serial() {
    static SInt64 last = 0;  // pages belong to the UI thread
    number = ++last;
}

SpecialPage::SpecialPage(CFDictionaryRef dictionary)
    : startPage_(SInt32InDictionary(dictionary, CFSTR("StartPage")).value_or(0)),
      stock_(StockOf(dictionary)) {}

CFMutableDictionaryRef SpecialPage::asTicket() const {
    const CFMutableDictionaryRef ticket = CFDictionaryCreateMutable(kCFAllocatorDefault, 0);
    WriteTicketValue(ticket, CFSTR("StartPage"), startPage_);
    const auto stock = Owned<CFMutableDictionaryRef>::Adopt(stock_.asTicket());
    CFDictionarySetValue(ticket, CFSTR("Stock"), stock);
    return ticket;
}

Cover::Cover(CFDictionaryRef dictionary)
    : SpecialPage(dictionary),
      sidesImaged_(SInt32InDictionary(dictionary, CFSTR("SidesImaged")).value_or(1)) {}

CFMutableDictionaryRef Cover::asTicket() const {
    const CFMutableDictionaryRef ticket = SpecialPage::asTicket();
    WriteTicketValue(ticket, CFSTR("SidesImaged"), sidesImaged_);
    return ticket;
}

Cover* Cover::clone() const { return new Cover(*this); }

bool Cover::operator==(const Cover& other) const {
    return sidesImaged_ == other.sidesImaged_ && stock() == other.stock();
}

Insert::Insert(CFDictionaryRef dictionary)
    : SpecialPage(dictionary),
      quantity_(SInt32InDictionary(dictionary, CFSTR("Quantity")).value_or(1)) {}

CFMutableDictionaryRef Insert::asTicket() const {
    const CFMutableDictionaryRef ticket = SpecialPage::asTicket();
    WriteTicketValue(ticket, CFSTR("Quantity"), quantity_);
    return ticket;
}

Insert* Insert::clone() const { return new Insert(*this); }

ExceptionPage::ExceptionPage() { ImageShiftInitialize(nullptr, nullptr, &imageShift_); }

ExceptionPage::ExceptionPage(CFDictionaryRef dictionary)
    : SpecialPage(dictionary),
      endPage_(SInt32InDictionary(dictionary, CFSTR("EndPage")).value_or(0)),
      plex_(OptionalNumber(dictionary, CFSTR("SidesImaged"))),
      imageShift_(ImageShiftOf(dictionary)),
      lightenDarken_(OptionalNumber(dictionary, CFSTR("LightenDarken"))) {}

CFMutableDictionaryRef ExceptionPage::asTicket() const {
    const CFMutableDictionaryRef ticket = SpecialPage::asTicket();
    WriteTicketValue(ticket, CFSTR("EndPage"), endPage_);
    const auto shift = Owned<CFDictionaryRef>::Adopt(
        ImageShiftCreateTicketFromOptions(&imageShift_, JobContext::job));
    if (shift) CFDictionarySetValue(ticket, kImageShiftKey, shift);
    WriteOptionalNumber(ticket, CFSTR("SidesImaged"), plex_);
    WriteOptionalNumber(ticket, CFSTR("HalftoneScreen"), halftoneScreen());
    WriteOptionalNumber(ticket, CFSTR("LightenDarken"), lightenDarken_);
    return ticket;
}

ExceptionPage* ExceptionPage::clone() const { return new ExceptionPage(*this); }

}  // namespace kalmo
