// Values of the platform, written down and read back in a test.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "foundation/property_list.h"
#include "foundation/url.h"
#include "printing/ticket.h"

namespace kalmo::test {

inline Owned<CFStringRef> String(std::string_view text) {
    return Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(text));
}
/// UTF-8 of what a Create or Copy returned, which is released; "(null)" for null.
inline std::string TakeText(CFStringRef created) {
    const auto text = Owned<CFStringRef>::Adopt(created);
    return text ? CFStringToUTF8(text) : "(null)";
}
/// A ticket of no session.
class LooseTicket final {
public:
    ~LooseTicket() { PMTicketDispose(ticket_); }
    operator PMTicketRef() const { return ticket_; }

private:
    PMTicketRef ticket_ = PMTicketCreate();
};
template <typename Value>
Owned<CFNumberRef> Number(CFNumberType type, Value value) {
    return Owned<CFNumberRef>::Adopt(CFNumberCreate(nullptr, type, &value));
}
inline Owned<CFDataRef> Data(const std::string& bytes) {
    return Owned<CFDataRef>::Adopt(CFDataCreate(
        nullptr, reinterpret_cast<const UInt8*>(bytes.data()), static_cast<CFIndex>(bytes.size())));
}
inline Owned<CFArrayRef> Array(std::vector<CFTypeRef> values) {
    return Owned<CFArrayRef>::Adopt(CFArrayCreate(
        nullptr, values.data(), static_cast<CFIndex>(values.size()), &kCFTypeArrayCallBacks));
}
inline Owned<CFURLRef> FileURL(const std::filesystem::path& file) {
    std::error_code ignored;
    return Owned<CFURLRef>::Adopt(
        CFURLCreateWithFileSystemPath(nullptr, String(file.string()), is_directory(file, ignored)));
}

/// A property list with this body, which starts in its fourth line.
inline std::string Plist(const std::string& body) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//X//DTD\" "
           "\"x\">\n<plist version=\"1.0\">\n" +
           body + "\n</plist>\n";
}
/// Null, and why, when the bytes are no property list.
inline Owned<CFPropertyListRef> ReadPlist(const std::string& xml, std::string* reason = nullptr) {
    Owned<CFStringRef> error;
    auto list = Owned<CFPropertyListRef>::Adopt(CFPropertyListCreateFromXMLData(
        nullptr, Data(xml), kCFPropertyListImmutable, error.adopt()));
    if (reason) *reason = CFStringToUTF8(error);
    return list;
}

}  // namespace kalmo::test
