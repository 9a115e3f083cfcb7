#include "print_dialog/reasons.h"

#include <string_view>

#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr std::string_view kPlace = "%@";
constexpr std::string_view kBetween = ": ";

/// The libraries serve programs without tables of texts too. %@ is a number or a name.
struct ReasonRow {
    std::string_view english;
    const char* key;
};
constexpr ReasonRow kReasons[] = {
    {"this is no ticket", "Not a ticket file"},
    {"its top level is no dictionary", "Reason top level"},
    {"%@ is no dictionary", "Reason no dictionary"},
    {"line %@", "Reason line"},
    {"no decimal integer of 64 bits", "Reason no integer"},
    {"no real number", "Reason no real number"},
    {"no date from 1933 to 2068", "Reason no date"},
    {"no data in base 64", "Reason no data"},
    {"not XML text in UTF-8", "Reason no text"},
    {"no XML property list", "Reason no property list"},
    {"no well-formed XML property list", "Reason no property list"},
    {"cut short", "Reason cut short"},
    {"declarations inside the document type are not accepted", "Reason declarations"},
    {"a tag ends within quotes", "Reason quotes"},
    {"nested more than %@ levels deep", "Reason nested"},
    {"larger than %@ MiB", "Reason too large"},
    {"it is larger than %@ MiB", "Reason too large"},
    {"the ticket is larger than %@ MiB", "Reason settings too large"},
    {"The settings are larger than %@ MiB", "Reason settings too large"},
    {"this is no PPD file", "Not a PPD file"},
    {"this PPD file has more than %@ lines", "Reason many lines"},
    {"this PPD file has more than %@ paper sizes", "Reason many paper sizes"},
    {"this PPD file has more than %@ groups", "Reason many groups"},
    {"there is not enough memory to read it", "Reason no memory"},
    {"this is no ordinary file", "Reason no ordinary file"},
    {"it is no ordinary file", "Reason no ordinary file"},
    {"it cannot be read", "Reason unreadable"},
    {"It cannot be read", "Reason unreadable"},
    {"It is damaged, or no PDF file", "Export anew"},
    {"It can only be opened with its password", "Password needed"},
    {"The output cannot be written", "Reason unwritten"},
};

std::string PartInWords(const std::string& part) {
    for (const auto& [english, key] : kReasons) {
        const std::size_t place = english.find(kPlace);
        if (part == english) return HostText(key);
        if (place == std::string_view::npos) continue;
        const auto end = english.substr(place + kPlace.size());
        if (part.size() + kPlace.size() <= english.size() || !part.ends_with(end) ||
            !part.starts_with(english.substr(0, place))) {
            continue;
        }
        return HostText(key, {part.substr(place, part.size() - place - end.size())});
    }
    return part;
}

}  // namespace

std::string ReasonInWords(std::string reason) {
    if (reason.ends_with('.')) reason.pop_back();  // lines of ours end without one
    const std::size_t between = reason.find(kBetween);
    const std::string first = PartInWords(reason.substr(0, between));
    if (between == std::string::npos) return first;
    return HostText("Reason detail",
                    {first, ReasonInWords(reason.substr(between + kBetween.size()))});
}

}  // namespace kalmo
