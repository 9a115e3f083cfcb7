// The base of every counted value. Private to the platform library.
#pragma once

#include <atomic>
#include <cstddef>
#include <string>

#include "foundation/object.h"

namespace kalmo::foundation {

/// What a kind of value can do; one record per kind, its address is the type id.
struct TypeRecord {
    const char* name;
    bool (*equal)(const struct Object* left, const struct Object* right);  // null: by address
    std::size_t (*hash)(const struct Object* value);                       // null: by address
    std::string (*describe)(const struct Object* value);                   // null: the name
};

struct Object {
    explicit Object(const TypeRecord& record);
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object();

    /// Alive for ever, neither counted nor freed.
    void makeImmortal();

    const TypeRecord* type;
    std::atomic<CFIndex> count{1};
    bool immortal = false;
};

[[nodiscard]] inline Object* AsObject(CFTypeRef value) {
    return const_cast<Object*>(static_cast<const Object*>(value));
}
/// The value as T when it is of that kind, else null.
template <typename T>
[[nodiscard]] T* As(CFTypeRef value, const TypeRecord& record) {
    return value && AsObject(value)->type == &record ? static_cast<T*>(AsObject(value)) : nullptr;
}
[[nodiscard]] inline CFTypeID IdOf(const TypeRecord& record) {
    return reinterpret_cast<CFTypeID>(&record);
}

}  // namespace kalmo::foundation
