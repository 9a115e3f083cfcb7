#include "foundation/collections_private.h"

using kalmo::foundation::As;
using kalmo::foundation::kDataType;
using kalmo::foundation::kDateType;
using kalmo::foundation::Object;

namespace {

const CFDataObject* Data(const Object* object) { return static_cast<const CFDataObject*>(object); }
const CFDateObject* Date(const Object* object) { return static_cast<const CFDateObject*>(object); }

std::string Bytes(const UInt8* bytes, CFIndex length) {
    if (!bytes || length <= 0) return {};
    return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length)};
}

}  // namespace

const kalmo::foundation::TypeRecord kalmo::foundation::kDataType{
    "data", [](const Object* a, const Object* b) { return Data(a)->bytes == Data(b)->bytes; },
    [](const Object* value) { return std::hash<std::string>{}(Data(value)->bytes); },
    [](const Object* value) { return std::to_string(Data(value)->bytes.size()) + " bytes"; }};
const kalmo::foundation::TypeRecord kalmo::foundation::kDateType{
    "date", [](const Object* a, const Object* b) { return Date(a)->seconds == Date(b)->seconds; },
    [](const Object* value) { return std::hash<double>{}(Date(value)->seconds); },
    [](const Object* value) { return "date " + std::to_string(Date(value)->seconds); }};

CFDataObject::CFDataObject(std::string content, bool isMutable)
    : Object(kDataType), bytes(std::move(content)), mutableBytes(isMutable) {}

CFDateObject::CFDateObject(double absoluteTime) : Object(kDateType), seconds(absoluteTime) {}

CFTypeID CFDataGetTypeID() { return kalmo::foundation::IdOf(kDataType); }

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8* bytes, CFIndex length) {
    return new CFDataObject(Bytes(bytes, length), false);
}

CFMutableDataRef CFDataCreateMutable(CFAllocatorRef, CFIndex) { return new CFDataObject({}, true); }

CFIndex CFDataGetLength(CFDataRef data) {
    const auto* const found = As<CFDataObject>(data, kDataType);
    return found ? static_cast<CFIndex>(found->bytes.size()) : 0;
}

const UInt8* CFDataGetBytePtr(CFDataRef data) {
    const auto* const found = As<CFDataObject>(data, kDataType);
    return found ? reinterpret_cast<const UInt8*>(found->bytes.data()) : nullptr;
}

void CFDataAppendBytes(CFMutableDataRef data, const UInt8* bytes, CFIndex length) {
    auto* const found = As<CFDataObject>(data, kDataType);
    if (found && found->mutableBytes) found->bytes += Bytes(bytes, length);
}

CFTypeID CFDateGetTypeID() { return kalmo::foundation::IdOf(kDateType); }

CFDateRef CFDateCreate(CFAllocatorRef, double seconds) { return new CFDateObject(seconds); }

double CFDateGetAbsoluteTime(CFDateRef date) {
    const auto* const found = As<CFDateObject>(date, kDateType);
    return found ? found->seconds : 0;
}
