// Property lists through libplist: the only file that knows it.
#include "foundation/property_list.h"

#include <locale.h>
#include <plist/plist.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "foundation/collections_private.h"
#include "foundation/number_private.h"
#include "foundation/property_list_check.h"
#include "foundation/string_private.h"

namespace {

using kalmo::foundation::UTF16FromUTF8;
using kalmo::foundation::UTF8FromUTF16;

struct PlistCloser {
    void operator()(void* list) const { plist_free(list); }
};
using PlistHolder = std::unique_ptr<void, PlistCloser>;

struct MemoryCloser {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using MemoryHolder = std::unique_ptr<T, MemoryCloser>;

/// XML has no place for most control characters; they become U+FFFD, so that what is written can
/// always be read. In what is read, too: two keys that differ in nothing else are one from then on.
std::u16string XMLText(std::u16string text) {
    for (char16_t& unit : text) {
        const bool control = unit < u' ' && unit != u'\t' && unit != u'\n' && unit != u'\r';
        if (control || unit == u'\uFFFE' || unit == u'\uFFFF') unit = u'\uFFFD';
    }
    return text;
}

/// The library reads and writes reals as the thread's locale has them; under a German one it would
/// read 0.5 as 0.
class PlainLocale final {
public:
    PlainLocale() : previous_(uselocale(Plain())) {}
    PlainLocale(const PlainLocale&) = delete;
    PlainLocale& operator=(const PlainLocale&) = delete;
    ~PlainLocale() { uselocale(previous_); }

private:
    static locale_t Plain() {
        static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
        return plain;
    }
    locale_t previous_;
};

// From the library's nodes.

struct NodeReader {
    CFPropertyListMutability mutability;

    [[nodiscard]] bool containersMutable() const { return mutability != kCFPropertyListImmutable; }
    [[nodiscard]] bool leavesMutable() const {
        return mutability == kCFPropertyListMutableContainersAndLeaves;
    }

    [[nodiscard]] Owned<CFTypeRef> read(plist_t node) const {
        switch (plist_get_node_type(node)) {
            case PLIST_BOOLEAN:
                return boolean(node);
            case PLIST_UINT:
                return integer(node);
            case PLIST_REAL:
                return real(node);
            case PLIST_STRING:
            case PLIST_KEY:
                return string(node);
            case PLIST_DATE:
                return date(node);
            case PLIST_DATA:
                return data(node);
            case PLIST_ARRAY:
                return array(node);
            case PLIST_DICT:
                return dictionary(node);
            default:
                return {};
        }
    }

private:
    static Owned<CFTypeRef> boolean(plist_t node) {
        uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return Owned<CFTypeRef>::Retain(value ? kCFBooleanTrue : kCFBooleanFalse);
    }
    static Owned<CFTypeRef> integer(plist_t node) {
        // The library keeps negative integers as their two's complement.
        uint64_t value = 0;
        plist_get_uint_val(node, &value);
        return Owned<CFTypeRef>::Adopt(
            CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt64Type, &value));
    }
    static Owned<CFTypeRef> real(plist_t node) {
        double value = 0;
        plist_get_real_val(node, &value);
        return Owned<CFTypeRef>::Adopt(
            CFNumberCreate(kCFAllocatorDefault, kCFNumberFloat64Type, &value));
    }
    [[nodiscard]] Owned<CFTypeRef> string(plist_t node) const {
        char* text = nullptr;
        plist_get_node_type(node) == PLIST_KEY ? plist_get_key_val(node, &text)
                                               : plist_get_string_val(node, &text);
        const MemoryHolder<char> held(text);
        return Owned<CFTypeRef>::Adopt(
            new CFStringObject(XMLText(UTF16FromUTF8(text ? text : "")), leavesMutable()));
    }
    static Owned<CFTypeRef> date(plist_t node) {
        int32_t seconds = 0;
        int32_t microseconds = 0;
        plist_get_date_val(node, &seconds, &microseconds);
        return Owned<CFTypeRef>::Adopt(
            CFDateCreate(kCFAllocatorDefault, seconds + microseconds / 1e6));
    }
    [[nodiscard]] Owned<CFTypeRef> data(plist_t node) const {
        char* bytes = nullptr;
        uint64_t length = 0;
        plist_get_data_val(node, &bytes, &length);
        const MemoryHolder<char> held(bytes);
        return Owned<CFTypeRef>::Adopt(new CFDataObject(
            bytes ? std::string(bytes, static_cast<std::size_t>(length)) : std::string(),
            leavesMutable()));
    }
    [[nodiscard]] Owned<CFTypeRef> array(plist_t node) const {
        auto* const array = new CFArrayObject(&kCFTypeArrayCallBacks, containersMutable());
        auto held = Owned<CFTypeRef>::Adopt(array);
        plist_array_iter iterator = nullptr;
        plist_array_new_iter(node, &iterator);
        const MemoryHolder<void> heldIterator(iterator);
        for (plist_t item = nullptr; plist_array_next_item(node, iterator, &item), item;) {
            if (const auto value = read(item)) array->insert(array->elements.size(), value);
        }
        return held;
    }
    [[nodiscard]] Owned<CFTypeRef> dictionary(plist_t node) const {
        auto* const dictionary = new CFDictionaryObject(containersMutable());
        auto held = Owned<CFTypeRef>::Adopt(dictionary);
        plist_dict_iter iterator = nullptr;
        plist_dict_new_iter(node, &iterator);
        const MemoryHolder<void> heldIterator(iterator);
        while (true) {
            char* key = nullptr;
            plist_t item = nullptr;
            plist_dict_next_item(node, iterator, &key, &item);
            const MemoryHolder<char> heldKey(key);
            if (!item) return held;
            const auto name = Owned<CFStringRef>::Adopt(
                new CFStringObject(XMLText(UTF16FromUTF8(key ? key : "")), false));
            if (const auto value = read(item)) dictionary->set(name, value);
        }
    }
};

// To the library's nodes.

PlistHolder NodeOf(CFTypeRef value, int depth);

PlistHolder NodeOfNumber(const CFNumberObject& number) {
    return PlistHolder(number.isReal() ? plist_new_real(number.real)
                                       : plist_new_uint(static_cast<uint64_t>(number.integer)));
}

/// Whole seconds, as XML has no fractions. Null outside the years 1933 to 2068, which are read.
PlistHolder NodeOfDate(const CFDateObject& date) {
    constexpr double kYears68 = (68 * 365 + 17) * 86400.0;  // on either side of 2001
    const double seconds = std::floor(date.seconds);
    if (!(seconds >= -kYears68 && seconds < kYears68)) return nullptr;
    return PlistHolder(plist_new_date(static_cast<int32_t>(seconds), 0));
}

PlistHolder NodeOfArray(const CFArrayObject& array, int depth) {
    PlistHolder node(plist_new_array());
    for (const void* element : array.elements) {
        PlistHolder item = NodeOf(element, depth + 1);
        if (!item) return nullptr;
        plist_array_append_item(node.get(), item.release());
    }
    return node;
}

PlistHolder NodeOfDictionary(const CFDictionaryObject& dictionary, int depth) {
    PlistHolder node(plist_new_dict());
    for (const auto& [key, value] : dictionary.entries) {
        const auto* const name =
            kalmo::foundation::As<CFStringObject>(key.get(), kalmo::foundation::kStringType);
        PlistHolder item = name ? NodeOf(value, depth + 1) : nullptr;
        if (!item) return nullptr;
        plist_dict_set_item(node.get(), UTF8FromUTF16(XMLText(name->text)).c_str(), item.release());
    }
    return node;
}

/// Null for what a property list cannot hold. Depth 1 is the outermost container.
PlistHolder NodeOf(CFTypeRef value, int depth) {
    using namespace kalmo::foundation;
    if (!value) return nullptr;
    const TypeRecord* const type = AsObject(value)->type;
    const Object* const object = AsObject(value);
    if (type == &kStringType) {
        return PlistHolder(plist_new_string(
            UTF8FromUTF16(XMLText(static_cast<const CFStringObject*>(object)->text)).c_str()));
    }
    if (type == &kNumberType) return NodeOfNumber(*static_cast<const CFNumberObject*>(object));
    if (type == &kBooleanType) {
        return PlistHolder(plist_new_bool(static_cast<const CFBooleanObject*>(object)->value));
    }
    if (type == &kDateType) return NodeOfDate(*static_cast<const CFDateObject*>(object));
    if (type == &kDataType) {
        const std::string& bytes = static_cast<const CFDataObject*>(object)->bytes;
        return PlistHolder(plist_new_data(bytes.data(), bytes.size()));
    }
    if (depth > kPropertyListMaximumDepth) return nullptr;
    if (type == &kArrayType) {
        const auto& array = *static_cast<const CFArrayObject*>(object);
        // Only an array that counts its elements is known to hold values.
        return array.callbacks.retain == kCFTypeArrayCallBacks.retain ? NodeOfArray(array, depth)
                                                                      : nullptr;
    }
    if (type == &kDictionaryType) {
        return NodeOfDictionary(*static_cast<const CFDictionaryObject*>(object), depth);
    }
    return nullptr;
}

/// A carriage return must be a character reference: XML readers turn a bare one into a line feed.
std::string WithReferences(std::string_view xml) {
    std::string text;
    text.reserve(xml.size());
    for (const char character : xml) {
        if (character == '\r') {
            text += "&#13;";
        } else {
            text += character;
        }
    }
    return text;
}

CFPropertyListRef Refuse(const std::string& reason, CFStringRef* error) {
    if (error) *error = CFStringCreateFromUTF8(reason);
    return nullptr;
}

}  // namespace

CFPropertyListRef CFPropertyListCreateFromXMLData(CFAllocatorRef, CFDataRef data,
                                                  CFPropertyListMutability mutability,
                                                  CFStringRef* error) {
    if (error) *error = nullptr;
    if (!data) return Refuse("no data", error);
    const std::string_view xml(reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
                               static_cast<std::size_t>(CFDataGetLength(data)));
    const auto checked = kalmo::foundation::CheckPropertyListXML(xml);
    if (!checked.fault.empty()) return Refuse(checked.fault, error);
    const PlainLocale plain;
    plist_t root = nullptr;
    plist_from_xml(checked.text.data(), static_cast<uint32_t>(checked.text.size()), &root);
    const PlistHolder held(root);
    if (!held) return Refuse("no well-formed XML property list", error);
    auto list = NodeReader{mutability}.read(root);
    return list ? list.detach() : Refuse("no well-formed XML property list", error);
}

CFDataRef CFPropertyListCreateXMLData(CFAllocatorRef allocator, CFPropertyListRef list) {
    const PlistHolder node = NodeOf(list, 1);
    if (!node) return nullptr;
    const PlainLocale plain;
    char* xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(node.get(), &xml, &length);
    const MemoryHolder<char> held(xml);
    if (!xml) return nullptr;
    const std::string text = WithReferences({xml, length});
    if (text.size() > kPropertyListMaximumBytes) return nullptr;
    return CFDataCreate(allocator, reinterpret_cast<const UInt8*>(text.data()),
                        static_cast<CFIndex>(text.size()));
}
