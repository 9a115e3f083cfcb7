#include "special_pages/special_page.h"

#include "settings/dictionary.h"
#include "settings/ticket.h"

namespace kalmo {
namespace {

Stock StockOf(CFDictionaryRef page) {
    const CFDictionaryRef stock = DictionaryInDictionary(page, CFSTR("Stock"));
    return stock ? Stock(stock) : Stock();
}

}  // namespace

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

}  // namespace kalmo
