#include "special_pages/page_ranges.h"

#include <algorithm>
#include <string>

#include "foundation/character_set.h"
#include "settings/dictionary.h"
#include "shell/base/notices.h"

namespace kalmo {
namespace {

/// Every page ten times over. A pasted text could name each of them thousands of times, and more
/// than any memory holds.
constexpr std::size_t kMostRecords = 1'000'000;

/// What was read of the item that is being read.
enum class Phase {
    empty,
    dashOpen,  // a dash without a number before it
    number,
    dash,  // a number and a dash
};

/// Takes the text's numbers, dashes and commas one by one; others are passed over before.
class RangeReader final {
public:
    explicit RangeReader(bool byRange) : byRange_(byRange) {}

    OSStatus number(SInt32 value) {
        if (value > kLastPageNumber) return kPageNumberLimit;
        if (phase_ == Phase::dashOpen || phase_ == Phase::dash) return append(first_, value);
        // A blank between two numbers parts them as a comma does.
        const OSStatus status = phase_ == Phase::number ? append(first_, first_) : noErr;
        first_ = value;
        phase_ = Phase::number;
        return status;
    }

    OSStatus dash() {
        if (phase_ == Phase::dashOpen || phase_ == Phase::dash) return kInvalidPages;
        phase_ = phase_ == Phase::number ? Phase::dash : Phase::dashOpen;
        return noErr;
    }

    /// A comma, or the text's end.
    OSStatus endOfItem() {
        switch (phase_) {
            case Phase::empty:
                break;
            case Phase::dashOpen:
                return kInvalidPages;
            case Phase::number:
                return append(first_, first_);
            case Phase::dash:
                return append(first_, kLastPageNumber);
        }
        return noErr;
    }

    [[nodiscard]] std::vector<PageRange>& ranges() { return ranges_; }

private:
    OSStatus append(SInt32 first, SInt32 last) {
        if (last < first) return kInvalidRange;
        const SInt32 count = last - first + 1;
        const std::size_t records = byRange_ ? 1 : static_cast<std::size_t>(count);
        if (ranges_.size() + records > kMostRecords) return kInvalidPages;
        if (byRange_) ranges_.push_back({first, count});
        for (SInt32 page = first; !byRange_ && page <= last; ++page) ranges_.push_back({page, 1});
        first_ = 1;
        phase_ = Phase::empty;
        return noErr;
    }

    const bool byRange_;
    Phase phase_ = Phase::empty;
    SInt32 first_ = 1;
    std::vector<PageRange> ranges_;
};

std::u16string CharactersOf(CFStringRef text) {
    std::u16string characters(static_cast<std::size_t>(CFStringGetLength(text)), u'\0');
    CFStringGetCharacters(text, {0, CFStringGetLength(text)}, characters.data());
    return characters;
}

/// The number at `*at`, which is moved behind it; beyond the last page, any larger one.
SInt32 TakeNumber(const std::u16string& text, std::size_t* at) {
    SInt32 number = 0;
    for (; *at < text.size(); ++*at) {
        const SInt32 digit = CFCharacterGetDigitValue(text[*at]);
        if (digit < 0) break;
        number = std::min(number * 10 + digit, kLastPageNumber + 1);
    }
    return number;
}

OSStatus ReadText(const std::u16string& text, RangeReader* reader) {
    OSStatus status = noErr;
    for (std::size_t at = 0; at < text.size() && status == noErr;) {
        if (CFCharacterGetDigitValue(text[at]) >= 0) {
            status = reader->number(TakeNumber(text, &at));
            continue;
        }
        if (text[at] == u'-') status = reader->dash();
        if (text[at] == u',') status = reader->endOfItem();
        ++at;
    }
    return status == noErr ? reader->endOfItem() : status;
}

/// How many digits the last page's number has.
constexpr SInt32 MostDigits() {
    SInt32 digits = 0;
    for (SInt32 rest = kLastPageNumber; rest > 0; rest /= 10) ++digits;
    return digits;
}

struct AlertRow {
    OSStatus code;
    NoticeKeys keys;
};

const AlertRow kAlerts[] = {
    {kPageNumberLimit, NoticeKeys{CFSTR("Page Number Limit Title"), CFSTR("Page Number Limit")}},
    {kInvalidPages, NoticeKeys{CFSTR("Invalid Pages Title"), CFSTR("Invalid Page Ranges")}},
    {kInvalidRange, NoticeKeys{CFSTR("Invalid Ranges Title"), CFSTR("Invalid Range Order")}},
    {kInvalidPageNumber,
     NoticeKeys{CFSTR("Invalid Page Numbers Title"), CFSTR("Invalid Page Numbers Message")}},
    {kPageRangeConflict,
     NoticeKeys{CFSTR("PageRangeConflictTitle"), CFSTR("PageRangeConflictMessage")}},
};

}  // namespace

OSStatus CreatePageRangesBySeparatingString(CFStringRef text, bool byRange,
                                            std::vector<PageRange>* ranges) {
    if (!text || !ranges) return paramErr;
    RangeReader reader(byRange);
    const OSStatus status = ReadText(CharactersOf(text), &reader);
    if (status != noErr) return status;
    if (reader.ranges().empty()) return kInvalidPages;
    *ranges = std::move(reader.ranges());
    return noErr;
}

void SpecialPagesUserNotification(OSStatus code, CFBundleRef bundle) {
    const auto* alert = std::ranges::find(kAlerts, code, &AlertRow::code);
    if (alert == std::end(kAlerts)) return;
    const auto digits = CreateNumber(MostDigits());
    const CFTypeRef arguments[] = {digits.get()};
    ShowNoticeWithKeys(bundle, alert->keys, arguments, std::size(arguments));
}

}  // namespace kalmo
