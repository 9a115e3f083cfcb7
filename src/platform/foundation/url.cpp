#include "foundation/url.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>

#include "foundation/object_private.h"
#include "foundation/url_private.h"

/// A file URL keeps its path, any other one only its text.
struct CFURLObject final : kalmo::foundation::Object {
    CFURLObject(std::string url, std::optional<std::string> file);
    Owned<CFStringRef> text;
    std::optional<std::string> path;
};

namespace {

using kalmo::foundation::As;
using kalmo::foundation::Object;

const CFURLObject* URL(const Object* object) { return static_cast<const CFURLObject*>(object); }

const kalmo::foundation::TypeRecord kURLType{
    "URL",
    [](const Object* a, const Object* b) { return bool(CFEqual(URL(a)->text, URL(b)->text)); },
    [](const Object* value) { return CFHash(URL(value)->text); },
    [](const Object* value) { return CFStringToUTF8(URL(value)->text); }};

bool StandsForItself(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) ||
           std::strchr("-._~/!$&'()*+,=:@", character) != nullptr;
}

std::string Encoded(const std::string& path) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (const char character : path) {
        if (character != '\0' && StandsForItself(character)) {
            text += character;
        } else {
            const auto byte = static_cast<unsigned char>(character);
            text += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
        }
    }
    return text;
}

std::string Decoded(const std::string& text) {
    std::string path;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool encoded = text[at] == '%' && at + 2 < text.size() &&
                             std::isxdigit(static_cast<unsigned char>(text[at + 1])) &&
                             std::isxdigit(static_cast<unsigned char>(text[at + 2]));
        if (!encoded) {
            path += text[at];
            continue;
        }
        path += static_cast<char>(std::stoi(text.substr(at + 1, 2), nullptr, 16));
        at += 2;
    }
    return path;
}

/// Nothing for an empty path and one with a NUL byte. The path carries no final slash but "/".
CFURLRef FileURL(std::string path, bool isDirectory) {
    if (path.empty() || path.find('\0') != std::string::npos) return nullptr;
    if (path.front() != '/') {
        std::error_code error;
        const auto folder = std::filesystem::current_path(error);
        if (error) return nullptr;
        path = (folder / path).string();
    }
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    const bool slash = isDirectory && path != "/";
    return new CFURLObject("file://" + Encoded(path) + (slash ? "/" : ""), path);
}

std::string SchemeOf(const std::string& text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos || colon == 0 ||
        !std::isalpha(static_cast<unsigned char>(text[0]))) {
        return {};
    }
    const std::string scheme = text.substr(0, colon);
    const bool valid = std::ranges::all_of(scheme, [](char character) {
        return std::isalnum(static_cast<unsigned char>(character)) ||
               std::strchr("+-.", character) != nullptr;
    });
    return valid ? scheme : std::string();
}

}  // namespace

CFURLObject::CFURLObject(std::string url, std::optional<std::string> file)
    : Object(kURLType),
      text(Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(url))),
      path(std::move(file)) {}

std::optional<std::string> kalmo::foundation::FilePathOf(CFURLRef url) {
    const auto* const found = As<CFURLObject>(url, kURLType);
    return found ? found->path : std::nullopt;
}

Owned<CFURLRef> kalmo::foundation::FileURLOf(const std::string& path, bool isDirectory) {
    return Owned<CFURLRef>::Adopt(FileURL(path, isDirectory));
}

CFTypeID CFURLGetTypeID() { return kalmo::foundation::IdOf(kURLType); }

CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef, CFStringRef path, Boolean isDirectory) {
    return path ? FileURL(CFStringToUTF8(path), isDirectory) : nullptr;
}

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef, const UInt8* path, CFIndex length,
                                                 Boolean isDirectory) {
    if (!path || length < 0) return nullptr;
    return FileURL({reinterpret_cast<const char*>(path), static_cast<std::size_t>(length)},
                   isDirectory);
}

CFURLRef CFURLCreateWithString(CFAllocatorRef, CFStringRef text, CFURLRef base) {
    if (!text) return nullptr;
    const std::string url = CFStringToUTF8(text);
    if (url.empty() || std::ranges::any_of(url, [](char character) {
            return static_cast<unsigned char>(character) <= ' ';
        })) {
        return nullptr;
    }
    if (url.starts_with("file:///")) return FileURL(Decoded(url.substr(7)), url.ends_with('/'));
    if (url.starts_with("file://localhost/")) {
        return FileURL(Decoded(url.substr(16)), url.ends_with('/'));
    }
    if (!SchemeOf(url).empty()) return new CFURLObject(url, std::nullopt);
    if (!base || !base->path) return nullptr;
    return FileURL(url.front() == '/' ? Decoded(url) : *base->path + "/" + Decoded(url),
                   url.ends_with('/'));
}

CFURLRef CFURLCreateCopyAppendingPathComponent(CFAllocatorRef, CFURLRef url, CFStringRef component,
                                               Boolean isDirectory) {
    const auto* const found = As<CFURLObject>(url, kURLType);
    if (!found || !found->path || !component) return nullptr;
    return FileURL((*found->path == "/" ? "/" : *found->path + "/") + CFStringToUTF8(component),
                   isDirectory);
}

CFStringRef CFURLGetString(CFURLRef url) {
    const auto* const found = As<CFURLObject>(url, kURLType);
    return found ? found->text.get() : nullptr;
}

CFStringRef CFURLCopyFileSystemPath(CFURLRef url) {
    const auto* const found = As<CFURLObject>(url, kURLType);
    return found && found->path ? CFStringCreateFromUTF8(*found->path) : nullptr;
}

Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean, UInt8* buffer, CFIndex size) {
    const auto* const found = As<CFURLObject>(url, kURLType);
    if (!found || !found->path || !buffer || static_cast<CFIndex>(found->path->size()) + 1 > size) {
        return false;
    }
    std::memcpy(buffer, found->path->c_str(), found->path->size() + 1);
    return true;
}
