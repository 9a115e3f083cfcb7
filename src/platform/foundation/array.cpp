#include <algorithm>

#include "foundation/collections_private.h"

using kalmo::foundation::As;
using kalmo::foundation::kArrayType;
using kalmo::foundation::Object;

namespace {

const CFArrayObject* Array(const Object* object) {
    return static_cast<const CFArrayObject*>(object);
}

bool EqualArrays(const Object* left, const Object* right) {
    const CFArrayObject* const a = Array(left);
    const CFArrayObject* const b = Array(right);
    // Elements that one side compares as values may be bare addresses on the other.
    if (a->callbacks.equal != b->callbacks.equal) return false;
    return std::ranges::equal(a->elements, b->elements,
                              [a](const void* x, const void* y) { return a->equal(x, y); });
}

std::string DescribeArray(const Object* value) {
    return "array of " + std::to_string(Array(value)->elements.size());
}

/// The array when it may be changed.
CFArrayObject* Mutable(CFMutableArrayRef array) {
    auto* const found = As<CFArrayObject>(array, kArrayType);
    return found && found->mutableElements ? found : nullptr;
}

CFArrayObject* CopyOf(CFArrayRef array, bool isMutable) {
    const auto* const from = As<CFArrayObject>(array, kArrayType);
    if (!from) return nullptr;
    auto* const copy = new CFArrayObject(&from->callbacks, isMutable);
    for (const void* element : from->elements) copy->insert(copy->elements.size(), element);
    return copy;
}

}  // namespace

const kalmo::foundation::TypeRecord kalmo::foundation::kArrayType{
    "array", EqualArrays, [](const Object* value) { return Array(value)->elements.size(); },
    DescribeArray};

const CFArrayCallBacks kCFTypeArrayCallBacks{
    0, [](CFAllocatorRef, const void* element) -> const void* { return CFRetain(element); },
    [](CFAllocatorRef, const void* element) { CFRelease(element); }, CFCopyDescription, CFEqual};

CFArrayObject::CFArrayObject(const CFArrayCallBacks* keeping, bool isMutable)
    : Object(kArrayType), mutableElements(isMutable) {
    if (keeping) callbacks = *keeping;
}

CFArrayObject::~CFArrayObject() { clear(); }

void CFArrayObject::insert(std::size_t at, const void* element) {
    const void* const kept =
        callbacks.retain ? callbacks.retain(kCFAllocatorDefault, element) : element;
    elements.insert(elements.begin() + static_cast<std::ptrdiff_t>(at), kept);
}

void CFArrayObject::remove(std::size_t at) {
    const void* const element = elements[at];
    elements.erase(elements.begin() + static_cast<std::ptrdiff_t>(at));
    if (callbacks.release) callbacks.release(kCFAllocatorDefault, element);
}

void CFArrayObject::clear() {
    const auto gone = std::exchange(elements, {});
    if (!callbacks.release) return;
    for (const void* element : gone) callbacks.release(kCFAllocatorDefault, element);
}

bool CFArrayObject::equal(const void* left, const void* right) const {
    return left == right || (callbacks.equal && callbacks.equal(left, right));
}

CFTypeID CFArrayGetTypeID() { return kalmo::foundation::IdOf(kArrayType); }

CFArrayRef CFArrayCreate(CFAllocatorRef, const void** elements, CFIndex count,
                         const CFArrayCallBacks* callbacks) {
    auto* const array = new CFArrayObject(callbacks, false);
    for (CFIndex i = 0; elements && i < count; ++i) {
        array->insert(array->elements.size(), elements[i]);
    }
    return array;
}

CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef, CFIndex, const CFArrayCallBacks* callbacks) {
    return new CFArrayObject(callbacks, true);
}

CFArrayRef CFArrayCreateCopy(CFAllocatorRef, CFArrayRef array) { return CopyOf(array, false); }

CFMutableArrayRef CFArrayCreateMutableCopy(CFAllocatorRef, CFIndex, CFArrayRef array) {
    return CopyOf(array, true);
}

CFIndex CFArrayGetCount(CFArrayRef array) {
    const auto* const found = As<CFArrayObject>(array, kArrayType);
    return found ? static_cast<CFIndex>(found->elements.size()) : 0;
}

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
    return index >= 0 && index < CFArrayGetCount(array)
               ? array->elements[static_cast<std::size_t>(index)]
               : nullptr;
}

CFIndex CFArrayGetFirstIndexOfValue(CFArrayRef array, CFRange range, const void* value) {
    const CFIndex start = std::max<CFIndex>(range.location, 0);
    const CFIndex room = CFArrayGetCount(array) - start;
    for (CFIndex i = 0; i < std::min(range.length, room); ++i) {
        if (array->equal(array->elements[static_cast<std::size_t>(start + i)], value)) {
            return start + i;
        }
    }
    return kCFNotFound;
}

Boolean CFArrayContainsValue(CFArrayRef array, CFRange range, const void* value) {
    return CFArrayGetFirstIndexOfValue(array, range, value) != kCFNotFound;
}

void CFArrayAppendValue(CFMutableArrayRef array, const void* value) {
    if (auto* const changed = Mutable(array)) changed->insert(changed->elements.size(), value);
}

void CFArrayInsertValueAtIndex(CFMutableArrayRef array, CFIndex index, const void* value) {
    auto* const changed = Mutable(array);
    if (changed && index >= 0 && index <= CFArrayGetCount(array)) {
        changed->insert(static_cast<std::size_t>(index), value);
    }
}

void CFArraySetValueAtIndex(CFMutableArrayRef array, CFIndex index, const void* value) {
    auto* const changed = Mutable(array);
    if (!changed || index < 0 || index > CFArrayGetCount(array)) return;
    changed->insert(static_cast<std::size_t>(index), value);
    if (index + 1 < CFArrayGetCount(array)) changed->remove(static_cast<std::size_t>(index) + 1);
}

void CFArrayRemoveValueAtIndex(CFMutableArrayRef array, CFIndex index) {
    auto* const changed = Mutable(array);
    if (changed && index >= 0 && index < CFArrayGetCount(array)) {
        changed->remove(static_cast<std::size_t>(index));
    }
}

void CFArrayRemoveAllValues(CFMutableArrayRef array) {
    if (auto* const changed = Mutable(array)) changed->clear();
}

void CFArraySortValues(CFMutableArrayRef array, CFRange range, CFComparatorFunction comparator,
                       void* context) {
    auto* const changed = Mutable(array);
    const CFIndex count = CFArrayGetCount(array);
    if (!changed || !comparator || range.location < 0 || range.length < 0 ||
        range.location > count || range.length > count - range.location) {
        return;
    }
    const auto first = changed->elements.begin() + range.location;
    std::stable_sort(first, first + range.length, [&](const void* left, const void* right) {
        return comparator(left, right, context) == kCFCompareLessThan;
    });
}
