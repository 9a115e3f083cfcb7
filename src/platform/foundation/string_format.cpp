// Formats from string tables: %@ %d %ld %%, with positions where a language reorders. They are
// untrusted, so nothing here ever reaches printf.
#include <optional>

#include "foundation/number.h"
#include "foundation/string_private.h"

namespace {

enum class Place { value, integer32, integer, percent };

struct Placeholder {
    Place place;
    std::size_t position;  // from 1; 0: the next argument
    std::size_t length;    // units in the format, with the per cent sign
};

/// What stands at `at`, the place of a per cent sign; nothing when it is no placeholder.
std::optional<Placeholder> PlaceholderAt(const std::u16string& format, std::size_t at) {
    std::size_t next = at + 1;
    std::size_t position = 0;
    std::size_t digits = next;
    while (digits < format.size() && format[digits] >= u'0' && format[digits] <= u'9' &&
           position < 1000) {
        position = position * 10 + (format[digits++] - u'0');
    }
    if (digits > next && digits < format.size() && format[digits] == u'$' && position > 0) {
        next = digits + 1;
    } else {
        position = 0;
    }
    const auto rest = std::u16string_view(format).substr(std::min(next, format.size()));
    const auto found = [&](Place place, std::size_t letters) {
        return Placeholder{place, position, next + letters - at};
    };
    if (rest.starts_with(u'@')) return found(Place::value, 1);
    if (rest.starts_with(u'd')) return found(Place::integer32, 1);
    if (rest.starts_with(u"ld")) return found(Place::integer, 2);
    if (rest.starts_with(u'%') && position == 0) return found(Place::percent, 1);
    return std::nullopt;
}

std::optional<std::u16string> Filled(Place place, CFTypeRef argument) {
    using kalmo::foundation::UTF16FromUTF8;
    if (place == Place::value) {
        const auto text = Owned<CFStringRef>::Adopt(CFCopyDescription(argument));
        return text.get()->text;
    }
    SInt64 number = 0;
    if (!argument || CFGetTypeID(argument) != CFNumberGetTypeID()) return std::nullopt;
    CFNumberGetValue(static_cast<CFNumberRef>(argument), kCFNumberSInt64Type, &number);
    if (place == Place::integer32) {
        SInt32 narrow = 0;
        CFNumberGetValue(static_cast<CFNumberRef>(argument), kCFNumberSInt32Type, &narrow);
        number = narrow;
    }
    return UTF16FromUTF8(std::to_string(number));
}

}  // namespace

CFStringRef CFStringCreateWithFormatAndValues(CFAllocatorRef, CFStringRef format,
                                              const CFTypeRef* arguments, CFIndex count) {
    if (!format) return nullptr;
    const std::u16string& pattern = format->text;
    std::u16string text;
    std::size_t nextArgument = 0;
    for (std::size_t at = 0; at < pattern.size();) {
        const auto placeholder =
            pattern[at] == u'%' ? PlaceholderAt(pattern, at) : std::optional<Placeholder>();
        if (!placeholder) {
            text += pattern[at++];
            continue;
        }
        const std::u16string asItStands = pattern.substr(at, placeholder->length);
        at += placeholder->length;
        if (placeholder->place == Place::percent) {
            text += u'%';
            continue;
        }
        const std::size_t index =
            placeholder->position ? placeholder->position - 1 : nextArgument++;
        const bool given = arguments && index < static_cast<std::size_t>(count);
        text += (given ? Filled(placeholder->place, arguments[index]) : std::nullopt)
                    .value_or(asItStands);
    }
    return kalmo::foundation::MakeString(std::move(text));
}
