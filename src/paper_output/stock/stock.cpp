#include "paper_output/stock/stock.h"

#include <algorithm>

#include "settings/dictionary.h"
#include "settings/ticket.h"

namespace kalmo {

/// One row per key. Rows are read in order: the conditions ask what has been read before.
struct Stock::TicketForm {
    struct Number {
        CFStringRef key;
        SInt32 Stock::*field;
        bool (*isWritten)(const Stock&) = nullptr;                // null: when it is set
        bool (*isRead)(const Stock&, CFDictionaryRef) = nullptr;  // null: always
    };
    struct Text {
        CFStringRef key;
        Owned<CFStringRef> Stock::*field;
    };
    static const Number kNumbers[];
    static const Text kTexts[];

    static bool Always(const Stock&) { return true; }
    static bool IsCustomSize(const Stock& stock) { return stock.size_ == kStockSizeCustom; }
    static bool HadCustomSize(const Stock& stock, CFDictionaryRef) { return IsCustomSize(stock); }
    static bool HasSides(const Stock& stock) { return stock.sidesCoated_ != kUnset; }
    static bool HadSides(const Stock&, CFDictionaryRef dictionary) {
        return SInt32InDictionary(dictionary, CFSTR("SidesCoated")).has_value();
    }
    // Not symmetric, and part of the format: written whenever it is set, read for two types only.
    static bool WasPrecutTab(const Stock& stock, CFDictionaryRef) {
        return stock.type_ == kStockTypePrecutTab || stock.type_ == kStockTypeCustomTab;
    }
};

const Stock::TicketForm::Number Stock::TicketForm::kNumbers[] = {
    {CFSTR("Size"), &Stock::size_},
    {CFSTR("Width"), &Stock::width_, IsCustomSize, HadCustomSize},
    {CFSTR("Length"), &Stock::length_, IsCustomSize, HadCustomSize},
    {CFSTR("Type"), &Stock::type_, Always},
    {CFSTR("Modulus"), &Stock::modulus_, nullptr, WasPrecutTab},
    {CFSTR("Color"), &Stock::color_},
    {CFSTR("Weight"), &Stock::weight_},
    {CFSTR("Punched"), &Stock::punched_},
    {CFSTR("SidesCoated"), &Stock::sidesCoated_},
    {CFSTR("kCoatingType"), &Stock::coatingType_, HasSides, HadSides},
    {CFSTR("Finish"), &Stock::finish_},
    {CFSTR("kGrain"), &Stock::grain_},
    {CFSTR("Source"), &Stock::source_},
};

const Stock::TicketForm::Text Stock::TicketForm::kTexts[] = {
    {CFSTR("CustomType"), &Stock::customType_},   {CFSTR("CustomColor"), &Stock::customColor_},
    {CFSTR("Description"), &Stock::description_}, {CFSTR("CustomName"), &Stock::customName_},
    {CFSTR("CustomComment"), &Stock::comment_},
};

namespace {

bool AreEqualTexts(CFStringRef left, CFStringRef right) {
    return left && right &&
           CFStringCompare(left, right, kCFCompareCaseInsensitive) == kCFCompareEqualTo;
}

}  // namespace

Stock::Stock() : Stock(nullptr) { color_ = kStockColorWhite; }

Stock::Stock(CFDictionaryRef dictionary) {
    for (const auto& [key, field, isWritten, isRead] : TicketForm::kNumbers) {
        if (isRead && !isRead(*this, dictionary)) continue;
        this->*field = SInt32InDictionary(dictionary, key).value_or(this->*field);
    }
    for (const auto& [key, field] : TicketForm::kTexts) {
        const CFStringRef text = StringInDictionary(dictionary, key);
        this->*field = Owned<CFStringRef>::Retain(text ? text : CFSTR(""));
    }
    customNameOnly_ = CFBooleanGetValue(BooleanInDictionary(dictionary, CFSTR("CustomNameOnly")));
}

Stock& Stock::operator=(const Stock& other) {
    if (this == &other) return *this;
    setSize(other.size_);
    setWidth(other.width_);
    setLength(other.length_);
    setColor(other.color_);
    setCustomColor(other.customColor_);
    setType(other.type_);
    setCustomType(other.customType_);
    setModulus(other.modulus_);
    setWeight(other.weight_);
    setPunched(other.punched_);
    setDescription(other.description_);
    setSidesCoated(other.sidesCoated_);
    setCoatingType(other.coatingType_);
    setFinish(other.finish_);
    setGrain(other.grain_);
    setCustomName(other.customName_);
    setCustomNameOnly(other.customNameOnly_);
    setComment(other.comment_);
    setSource(other.source_);
    return *this;
}

void Stock::setSize(SInt32 size) {
    size_ = size;
    if (size != kStockSizeCustom) width_ = length_ = kUnset;
}

void Stock::setWidth(SInt32 width) {
    if (width != kUnset) setSize(kStockSizeCustom);
    width_ = width;
}

void Stock::setLength(SInt32 length) {
    if (length != kUnset) setSize(kStockSizeCustom);
    length_ = length;
}

void Stock::setType(SInt32 type) {
    type_ = type;
    if (type == kStockTypeTransparency) color_ = kStockColorClear;
}

void Stock::setCustomType(CFStringRef text) { customType_ = Owned<CFStringRef>::Retain(text); }
void Stock::setCustomColor(CFStringRef text) { customColor_ = Owned<CFStringRef>::Retain(text); }
void Stock::setDescription(CFStringRef text) { description_ = Owned<CFStringRef>::Retain(text); }
void Stock::setCustomName(CFStringRef text) { customName_ = Owned<CFStringRef>::Retain(text); }
void Stock::setComment(CFStringRef text) { comment_ = Owned<CFStringRef>::Retain(text); }

CFMutableDictionaryRef Stock::asTicket() const {
    const CFMutableDictionaryRef ticket = CFDictionaryCreateMutable(kCFAllocatorDefault, 0);
    for (const auto& [key, field, isWritten, isRead] : TicketForm::kNumbers) {
        if (isWritten ? isWritten(*this) : this->*field != kUnset)
            WriteTicketValue(ticket, key, this->*field);
    }
    for (const auto& [key, field] : TicketForm::kTexts) {
        if (CFStringGetLength(this->*field) > 0) CFDictionarySetValue(ticket, key, this->*field);
    }
    if (customNameOnly_) CFDictionarySetValue(ticket, CFSTR("CustomNameOnly"), kCFBooleanTrue);
    return ticket;
}

bool Stock::operator==(const Stock& other) const {
    return customNameOnly_ == other.customNameOnly_ &&
           std::ranges::all_of(
               TicketForm::kNumbers,
               [&](const auto& row) { return this->*row.field == other.*row.field; }) &&
           std::ranges::all_of(TicketForm::kTexts, [&](const auto& row) {
               return AreEqualTexts(this->*row.field, other.*row.field);
           });
}

void DefaultStock(Stock* stock, JobContext context) {
    const bool isJob = context == JobContext::job;
    stock->setSize(isJob ? kStockSizeLetter : kUnset);
    stock->setColor(isJob ? kStockColorWhite : kUnset);
    stock->setType(isJob ? kStockTypeStandard : kUnset);
    stock->setPunched(kUnset);
    stock->setWeight(kUnset);
    stock->setModulus(kUnset);
    stock->setCustomType(CFSTR(""));
    stock->setCustomColor(CFSTR(""));
    stock->setDescription(CFSTR(""));
    stock->setCustomName(CFSTR(""));
    stock->setCustomNameOnly(false);
    stock->setSidesCoated(kUnset);
}

}  // namespace kalmo
