// Ticket files as tests write and read them.
#pragma once

#include <string>

#include "foundation/property_list.h"

namespace kalmo::test {

/// A ticket file with these entries (XML) in its three dictionaries.
inline std::string TicketFile(const std::string& printSettings, const std::string& ppdChoices = {},
                              const std::string& pageFormat = {}) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
           "<key>PrintSettings</key><dict>" +
           printSettings + "</dict><key>PPDChoices</key><dict>" + ppdChoices +
           "</dict><key>PageFormat</key><dict>" + pageFormat + "</dict></dict></plist>\n";
}

/// A ticket file that was written, to be asked.
class WrittenTicket final {
public:
    explicit WrittenTicket(const std::string& bytes) {
        const auto data = Owned<CFDataRef>::Adopt(
            CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(bytes.data()),
                         static_cast<CFIndex>(bytes.size())));
        list_ = Owned<CFPropertyListRef>::Adopt(CFPropertyListCreateFromXMLData(
            kCFAllocatorDefault, data, kCFPropertyListImmutable, nullptr));
    }
    [[nodiscard]] bool isPropertyList() const { return list_.get(); }
    [[nodiscard]] CFDictionaryRef dictionary(const char* name) const {
        return static_cast<CFDictionaryRef>(
            CFDictionaryGetValue(static_cast<CFDictionaryRef>(list_.get()), Key(name).get()));
    }
    /// Borrowed; null when absent.
    [[nodiscard]] CFTypeRef value(const char* dictionaryName, const char* key) const {
        return CFDictionaryGetValue(dictionary(dictionaryName), Key(key).get());
    }
    /// "(none)" when absent or no string.
    [[nodiscard]] std::string text(const char* dictionaryName, const char* key) const {
        const auto* found = value(dictionaryName, key);
        if (!found || CFGetTypeID(found) != CFStringGetTypeID()) return "(none)";
        return CFStringToUTF8(static_cast<CFStringRef>(found));
    }

private:
    static Owned<CFStringRef> Key(const char* text) {
        return Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(text));
    }
    Owned<CFPropertyListRef> list_;
};

}  // namespace kalmo::test
