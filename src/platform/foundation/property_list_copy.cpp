// Deep copies of property lists, with the mutability asked for.
#include "foundation/collections_private.h"
#include "foundation/number_private.h"
#include "foundation/property_list.h"
#include "foundation/string_private.h"

namespace {

using namespace kalmo::foundation;

struct Copier {
    bool containersMutable;
    bool leavesMutable;

    /// Null for what a property list cannot hold, and below the depth limit.
    [[nodiscard]] Owned<CFTypeRef> copy(CFTypeRef value, int depth) const {
        if (!value || depth > kPropertyListMaximumDepth + 1) return {};
        if (const auto* const string = As<CFStringObject>(value, kStringType)) {
            return Owned<CFTypeRef>::Adopt(new CFStringObject(string->text, leavesMutable));
        }
        if (const auto* const data = As<CFDataObject>(value, kDataType)) {
            return Owned<CFTypeRef>::Adopt(new CFDataObject(data->bytes, leavesMutable));
        }
        if (const auto* const array = As<CFArrayObject>(value, kArrayType)) {
            return copyArray(*array, depth);
        }
        if (const auto* const dictionary = As<CFDictionaryObject>(value, kDictionaryType)) {
            return copyDictionary(*dictionary, depth);
        }
        const TypeRecord* const type = AsObject(value)->type;
        const bool isConstant = type == &kNumberType || type == &kBooleanType || type == &kDateType;
        return isConstant ? Owned<CFTypeRef>::Retain(value) : Owned<CFTypeRef>();
    }

private:
    [[nodiscard]] Owned<CFTypeRef> copyArray(const CFArrayObject& array, int depth) const {
        if (array.callbacks.retain != kCFTypeArrayCallBacks.retain) return {};
        auto* const copied = new CFArrayObject(&kCFTypeArrayCallBacks, containersMutable);
        auto held = Owned<CFTypeRef>::Adopt(copied);
        for (const void* element : array.elements) {
            const auto value = copy(element, depth + 1);
            if (!value) return {};
            copied->insert(copied->elements.size(), value);
        }
        return held;
    }

    [[nodiscard]] Owned<CFTypeRef> copyDictionary(const CFDictionaryObject& dictionary,
                                                  int depth) const {
        auto* const copied = new CFDictionaryObject(containersMutable);
        auto held = Owned<CFTypeRef>::Adopt(copied);
        for (const auto& [key, element] : dictionary.entries) {
            const auto value = copy(element, depth + 1);
            if (!value) return {};
            copied->set(key, value);
        }
        return held;
    }
};

}  // namespace

CFPropertyListRef CFPropertyListCreateDeepCopy(CFAllocatorRef, CFPropertyListRef list,
                                               CFPropertyListMutability mutability) {
    const Copier copier{mutability != kCFPropertyListImmutable,
                        mutability == kCFPropertyListMutableContainersAndLeaves};
    return copier.copy(list, 1).detach();
}
