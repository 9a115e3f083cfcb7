// Ticket files as tests write and read them.
#pragma once

#include "support/test.h"

namespace kalmo::test {

/// A ticket file with these entries (XML) in its three dictionaries.
inline std::string TicketFile(const std::string& printSettings, const std::string& ppdChoices = {},
                              const std::string& pageFormat = {}) {
    return Plist("<dict><key>PrintSettings</key><dict>" + printSettings +
                 "</dict><key>PPDChoices</key><dict>" + ppdChoices +
                 "</dict><key>PageFormat</key><dict>" + pageFormat + "</dict></dict>");
}

/// Of a ticket file's dictionaries.
inline std::string TextEntry(const std::string& key, const std::string& text) {
    return "<key>" + key + "</key><string>" + text + "</string>";
}
inline std::string DictionaryEntry(const std::string& key, const std::string& entries) {
    return "<key>" + key + "</key><dict>" + entries + "</dict>";
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
