#include "foundation/object.h"

#include <cstdint>

#include "foundation/object_private.h"
#include "foundation/string.h"

using kalmo::foundation::AsObject;
using kalmo::foundation::Object;

namespace {

std::atomic<std::size_t> liveValues{0};

}  // namespace

kalmo::foundation::Object::Object(const TypeRecord& record) : type(&record) { ++liveValues; }

kalmo::foundation::Object::~Object() { --liveValues; }

void kalmo::foundation::Object::makeImmortal() {
    immortal = true;
    --liveValues;
}

CFTypeRef CFRetain(CFTypeRef value) {
    if (value && !AsObject(value)->immortal) ++AsObject(value)->count;
    return value;
}

void CFRelease(CFTypeRef value) {
    if (!value) return;
    Object* const object = AsObject(value);
    if (!object->immortal && --object->count == 0) delete object;
}

CFIndex CFGetRetainCount(CFTypeRef value) { return value ? AsObject(value)->count.load() : 0; }

CFTypeID CFGetTypeID(CFTypeRef value) {
    return value ? kalmo::foundation::IdOf(*AsObject(value)->type) : 0;
}

Boolean CFEqual(CFTypeRef left, CFTypeRef right) {
    if (left == right) return true;
    if (!left || !right) return false;
    const Object* const a = AsObject(left);
    const Object* const b = AsObject(right);
    return a->type == b->type && a->type->equal && a->type->equal(a, b);
}

std::size_t CFHash(CFTypeRef value) {
    if (!value) return 0;
    const Object* const object = AsObject(value);
    return object->type->hash ? object->type->hash(object)
                              : reinterpret_cast<std::uintptr_t>(object) >> 4;
}

CFStringRef CFCopyDescription(CFTypeRef value) {
    if (!value) return CFStringCreateFromUTF8("(null)");
    const Object* const object = AsObject(value);
    return CFStringCreateFromUTF8(object->type->describe ? object->type->describe(object)
                                                         : object->type->name);
}

std::size_t CFLiveValueCount() { return liveValues; }
