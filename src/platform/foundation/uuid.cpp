#include "foundation/uuid.h"

#include <cctype>
#include <cstring>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "foundation/object_private.h"

struct CFUUIDObject final : kalmo::foundation::Object {
    explicit CFUUIDObject(CFUUIDBytes identifier);
    CFUUIDBytes bytes;
};

namespace {

using kalmo::foundation::Object;

const CFUUIDObject* UUID(const Object* object) { return static_cast<const CFUUIDObject*>(object); }

std::string TextOf(const CFUUIDBytes& bytes) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (int i = 0; i < 16; ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
        text += kDigits[bytes.bytes[i] >> 4];
        text += kDigits[bytes.bytes[i] & 15];
    }
    return text;
}

int DigitValue(char digit) {
    return std::isdigit(static_cast<unsigned char>(digit))
               ? digit - '0'
               : std::toupper(static_cast<unsigned char>(digit)) - 'A' + 10;
}

std::optional<CFUUIDBytes> Parsed(const std::string& text) {
    if (text.size() != 36) return std::nullopt;
    CFUUIDBytes bytes{};
    int digits = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool dash = at == 8 || at == 13 || at == 18 || at == 23;
        if (dash != (text[at] == '-')) return std::nullopt;
        if (dash) continue;
        if (!std::isxdigit(static_cast<unsigned char>(text[at]))) return std::nullopt;
        UInt8& byte = bytes.bytes[digits++ / 2];
        byte = static_cast<UInt8>(byte << 4 | DigitValue(text[at]));
    }
    return bytes;
}

const kalmo::foundation::TypeRecord kUUIDType{
    "UUID",
    [](const Object* a, const Object* b) {
        return std::memcmp(&UUID(a)->bytes, &UUID(b)->bytes, sizeof(CFUUIDBytes)) == 0;
    },
    [](const Object* value) { return std::hash<std::string>{}(TextOf(UUID(value)->bytes)); },
    [](const Object* value) { return TextOf(UUID(value)->bytes); }};

}  // namespace

CFUUIDObject::CFUUIDObject(CFUUIDBytes identifier) : Object(kUUIDType), bytes(identifier) {}

CFTypeID CFUUIDGetTypeID() { return kalmo::foundation::IdOf(kUUIDType); }

CFUUIDRef CFUUIDCreateFromString(CFAllocatorRef, CFStringRef text) {
    const auto bytes = Parsed(CFStringToUTF8(text));
    return bytes ? new CFUUIDObject(*bytes) : nullptr;
}

CFUUIDRef CFUUIDCreateFromUUIDBytes(CFAllocatorRef, CFUUIDBytes bytes) {
    return new CFUUIDObject(bytes);
}

CFUUIDBytes CFUUIDGetUUIDBytes(CFUUIDRef uuid) { return uuid ? uuid->bytes : CFUUIDBytes{}; }

CFStringRef CFUUIDCreateString(CFAllocatorRef, CFUUIDRef uuid) {
    return uuid ? CFStringCreateFromUTF8(TextOf(uuid->bytes)) : nullptr;
}

CFUUIDRef CFUUIDGetConstantUUIDWithBytes(CFAllocatorRef, CFUUIDBytes bytes) {
    static std::mutex mutex;
    static auto& constants = *new std::map<std::string, CFUUIDObject*>;
    const std::lock_guard lock(mutex);
    CFUUIDObject*& constant = constants[TextOf(bytes)];
    if (!constant) {
        constant = new CFUUIDObject(bytes);
        constant->makeImmortal();
    }
    return constant;
}
