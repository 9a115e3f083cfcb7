// Arrays, dictionaries, data and dates. Private to the platform library.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "foundation/collections.h"
#include "foundation/object_private.h"

namespace kalmo::foundation {

extern const TypeRecord kArrayType;
extern const TypeRecord kDictionaryType;
extern const TypeRecord kDataType;
extern const TypeRecord kDateType;

struct HashValue {
    std::size_t operator()(CFTypeRef value) const { return CFHash(value); }
};
struct EqualValues {
    bool operator()(CFTypeRef left, CFTypeRef right) const { return CFEqual(left, right); }
};

}  // namespace kalmo::foundation

struct CFArrayObject final : kalmo::foundation::Object {
    CFArrayObject(const CFArrayCallBacks* keeping, bool isMutable);
    ~CFArrayObject() override;

    void insert(std::size_t index, const void* element);
    void remove(std::size_t index);
    void clear();
    [[nodiscard]] bool equal(const void* left, const void* right) const;

    CFArrayCallBacks callbacks{};
    std::vector<const void*> elements;
    bool mutableElements;
};

/// Entries in the order in which their keys were first set; the index finds a key at once.
struct CFDictionaryObject final : kalmo::foundation::Object {
    struct Entry {
        Owned<CFTypeRef> key, value;
    };

    explicit CFDictionaryObject(bool isMutable);

    [[nodiscard]] CFTypeRef find(CFTypeRef key) const;
    void set(CFTypeRef key, CFTypeRef value);
    void remove(CFTypeRef key);

    std::vector<Entry> entries;
    std::unordered_map<CFTypeRef, std::size_t, kalmo::foundation::HashValue,
                       kalmo::foundation::EqualValues>
        index;
    bool mutableEntries;
};

struct CFDataObject final : kalmo::foundation::Object {
    CFDataObject(std::string content, bool isMutable);
    std::string bytes;
    bool mutableBytes;
};

struct CFDateObject final : kalmo::foundation::Object {
    explicit CFDateObject(double absoluteTime);
    double seconds;
};
