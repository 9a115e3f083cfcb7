// Tickets that somebody else wrote, through the Paper/Output panel's record: any value under any
// key is read, and what was read and written twice stays as it is.
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "paper_output/paper_output_record.h"
#include "settings/ppd_choices.h"

namespace {

using namespace kalmo;
using Value = Owned<CFTypeRef>;

/// Keys of the ticket (T, below "com.kalmo.print.") and of the dictionaries in it, each with its
/// kind: # number, ? flag, $ text, R array of recipients (P), else a dictionary of that letter.
const std::map<char, std::string> kForms = {
    {'T',
     "JobLevelStock:S SeparatorStock:S JobType:J FaxOptions:O FaxRecipientList:R "
     "SpecialPages.FrontCover:C SpecialPages.BackCover:C BookletLayout:? BookletForceNewSize:? "
     "FinishingCustom:$ SeparatorOption:# BookletDrawOutlines:# Gutter:# Creep:# "
     "FinishingDuplex:# FinishingOptions:# FinishingOffset:# FinishingOffsetEnableSubset:# "
     "FinishingOffsetPagesPerSubset:# FinishingSlipSheet:# FinishingBindValue:#"},
    {'S',
     "Size:# Width:# Length:# Type:# Modulus:# Color:# Weight:# Punched:# SidesCoated:# "
     "kCoatingType:# Finish:# kGrain:# Source:# CustomType:$ CustomColor:$ Description:$ "
     "CustomName:$ CustomComment:$ CustomNameOnly:?"},
    {'J',
     "JobType:# MediaType:# UseJobName:? SavedJobName:$ SavedJobLocation:$ SecurePrintPassword:$ "
     "DelayedPrintTime:# SaveDisposition:# Unknown:$"},
    {'C', "StartPage:# SidesImaged:# Stock:S"},
    {'P', "FirstName:$ LastName:$ FaxNumber:$ Mailbox:$ UID:$ Unknown:$"},
    {'O', "Resolution:# SendTime:$"}};

std::vector<std::string> KeysOf(char form) {
    std::istringstream words(kForms.at(form));
    return {std::istream_iterator<std::string>(words), {}};
}

std::string NameOf(const std::string& key) { return key.substr(0, key.size() - 2); }

constexpr const char* kKeywords[] = {"MediaColor", "MediaType", "OutputBin",     "Duplex",
                                     "KLFold",     "KLPunch",   "StapleLocation"};

Owned<CFStringRef> String(const std::string& text) {
    return Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(text));
}

/// The bytes decide what the ticket holds; behind their end everything is absent.
class WrittenByOthers final {
public:
    WrittenByOthers(const std::uint8_t* bytes, std::size_t size)
        : next_(bytes), end_(bytes + size) {}

    void fill(PMTicketRef ticket) {
        for (const std::string& key : KeysOf('T'))
            if (below(4))
                PMTicketSetItem(ticket, nullptr, String("com.kalmo.print." + NameOf(key)),
                                value(key.back()).get(), false);
        CFMutableDictionaryRef choices = nullptr;
        PMTicketGetPPDDict(ticket, &choices);
        for (const char* keyword : kKeywords)
            if (below(4)) CFDictionarySetValue(choices, String(keyword), choice(keyword).get());
    }

private:
    int below(int count) { return next_ == end_ ? 0 : *next_++ % count; }

    Value number() {
        static constexpr double kOdd[] = {-1, 3.5, INT32_MIN, INT32_MAX, 1e12};
        const double real = below(5) ? below(80) : kOdd[below(std::size(kOdd))];
        const auto whole = static_cast<SInt64>(real);
        return Value::Adopt(real == static_cast<double>(whole)
                                ? CFNumberCreate(nullptr, kCFNumberSInt64Type, &whole)
                                : CFNumberCreate(nullptr, kCFNumberFloat64Type, &real));
    }
    /// One in seven is of another kind: too long, too deep, or just wrong.
    Value value(char kind) {
        if (below(7) == 1) kind = "#?$LDOR"[below(7)];
        if (kind == '#') return number();
        if (kind == '?') return Value::Retain(below(2) ? kCFBooleanTrue : kCFBooleanFalse);
        if (kind == '$') return String(std::string(static_cast<std::size_t>(below(6)), 'x'));
        if (kind == 'L') return String(std::string(1 << 16, '9'));
        if (kind == 'D') return deep();
        return kind == 'R' ? recipients() : dictionary(kind);
    }
    static Value deep() {
        Value inner;
        for (int level = 0; level < 500; ++level) {
            auto* const outer = CFDictionaryCreateMutable(nullptr, 0);
            CFDictionarySetValue(outer, CFSTR("Stock"), inner.get());
            inner = Value::Adopt(outer);
        }
        return inner;
    }
    Value recipients() {
        auto* const made = CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks);
        for (int left = below(4); left > 0; --left) CFArrayAppendValue(made, value('P').get());
        return Value::Adopt(made);
    }
    Value dictionary(char form) {
        auto* const made = CFDictionaryCreateMutable(nullptr, 0);
        for (const std::string& key : KeysOf(form))
            if (below(3)) CFDictionarySetValue(made, String(NameOf(key)), value(key.back()).get());
        return Value::Adopt(made);
    }
    Value choice(const std::string& keyword) {
        if (below(8) == 1) return value(below(2) ? '$' : '#');
        const MainKeywordRow* row = MainKeywordMap;
        while (CFStringToUTF8(row->keyword) != keyword) ++row;
        int count = 0;
        while (row->choices[count].choice) ++count;
        return Value::Retain(row->choices[below(count)].choice);
    }

    const std::uint8_t *next_, *end_;
};

/// The ticket as a panel leaves it that has just read it, its PPD choices among the items.
Value ReadAndWritten(PMTicketRef ticket, SidesPopup popup) {
    PaperOutputRecord record;
    ReadPaperOutput(&record, {.settings = ticket, .pageFormat = ticket});
    SyncCovers(ticket, kSyncToUI, &record.frontCover, &record.backCover);
    if (WritePaperOutput(record, ticket, popup) != noErr) std::abort();
    SyncCovers(ticket, kSyncToTicket, &record.frontCover, &record.backCover);
    const auto items = Owned<CFDictionaryRef>::Adopt(PMTicketCopyItems(ticket));
    CFMutableDictionaryRef choices = nullptr;
    PMTicketGetPPDDict(ticket, &choices);
    auto* const all = CFDictionaryCreateMutableCopy(nullptr, 0, items);
    const auto copied = Value::Adopt(CFDictionaryCreateCopy(nullptr, choices));
    CFDictionarySetValue(all, CFSTR("PPD"), copied.get());
    return Value::Adopt(all);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const PMTicketRef ticket = PMTicketCreate();
    WrittenByOthers(bytes, size).fill(ticket);
    const auto popup = size % 3 ? SidesPopup::exists : SidesPopup::missing;
    // Once a paper's type that gives way to another has done so, nothing moves any more.
    ReadAndWritten(ticket, popup);
    const Value second = ReadAndWritten(ticket, popup);
    if (!CFEqual(second, ReadAndWritten(ticket, popup))) std::abort();
    PMTicketDispose(ticket);
    return 0;
}
