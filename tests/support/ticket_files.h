// Ticket files as tests write and read them.
#pragma once

#include "support/test.h"

namespace kalmo::test {

/// Of a ticket file's dictionaries.
inline std::string TextEntry(const std::string& key, const std::string& text) {
    return "<key>" + key + "</key><string>" + text + "</string>";
}
inline std::string DictionaryEntry(const std::string& key, const std::string& entries) {
    return "<key>" + key + "</key><dict>" + entries + "</dict>";
}
/// A ticket file with these entries (XML) among the settings, and choices of the printer's options:
/// "Duplex=None PageSize=A4".
inline std::string TicketFile(const std::string& printSettings, const std::string& choices = {}) {
    std::string choiceEntries;
    std::istringstream words(choices);
    for (std::string option, choice;
         std::getline(words >> std::ws, option, '=') && words >> choice;)
        choiceEntries += TextEntry(option, choice);
    return Plist("<dict>" + DictionaryEntry("PrintSettings", printSettings) +
                 DictionaryEntry("PPDChoices", choiceEntries) + DictionaryEntry("PageFormat", "") +
                 "</dict>");
}
/// A job of this type; `details` are further entries of its dictionary.
inline std::string JobTypeEntry(int type, const std::string& details = {}) {
    return DictionaryEntry(
        "com.kalmo.print.JobType",
        "<key>JobType</key><integer>" + std::to_string(type) + "</integer>" + details);
}

/// A ticket file that was written, to be asked.
class WrittenTicket final {
public:
    explicit WrittenTicket(const std::string& bytes) : list_(ReadPlist(bytes)) {}
    [[nodiscard]] CFDictionaryRef dictionary(const char* name) const {
        return static_cast<CFDictionaryRef>(
            CFDictionaryGetValue(static_cast<CFDictionaryRef>(list_.get()), String(name)));
    }
    /// Borrowed; null when absent.
    [[nodiscard]] CFTypeRef value(const char* dictionaryName, const char* key) const {
        return CFDictionaryGetValue(dictionary(dictionaryName), String(key));
    }
    /// "(none)" when absent or no string.
    [[nodiscard]] std::string text(const char* dictionaryName, const char* key) const {
        const auto* found = value(dictionaryName, key);
        if (!found || CFGetTypeID(found) != CFStringGetTypeID()) return "(none)";
        return CFStringToUTF8(static_cast<CFStringRef>(found));
    }

private:
    Owned<CFPropertyListRef> list_;
};

}  // namespace kalmo::test
