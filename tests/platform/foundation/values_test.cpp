// Values: kinds and exactness, equality, counts, collections.
#include <gtest/gtest.h>

#include <cmath>

#include "foundation/collections.h"
#include "foundation/number.h"
#include "foundation/string.h"

namespace {

template <typename Value>
Owned<CFNumberRef> Number(CFNumberType type, Value value) {
    return Owned<CFNumberRef>::Adopt(CFNumberCreate(kCFAllocatorDefault, type, &value));
}

TEST(Numbers, TellWhetherAConversionIsExact) {
    const struct {
        const char* why;
        Owned<CFNumberRef> number;
        SInt32 value;
        bool exact;
    } rows[] = {
        {"fits", Number(kCFNumberSInt64Type, SInt64{-7}), -7, true},
        {"too large", Number(kCFNumberSInt64Type, SInt64{1} << 40), INT32_MAX, false},
        {"fraction", Number(kCFNumberFloat64Type, -3.5), -3, false},
        {"whole real", Number(kCFNumberFloat64Type, 4.0), 4, true},
        {"edge", Number(kCFNumberFloat64Type, 2147483648.0), INT32_MAX, false},
        {"no number", Number(kCFNumberFloat64Type, std::nan("")), 0, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        SInt32 value = 99;
        EXPECT_EQ(CFNumberGetValue(row.number, kCFNumberSInt32Type, &value), row.exact);
        EXPECT_EQ(value, row.value);
    }
    SInt32 untouched = 99;
    EXPECT_FALSE(CFNumberGetValue(nullptr, kCFNumberSInt32Type, &untouched));
    EXPECT_FALSE(CFNumberGetValue(reinterpret_cast<CFNumberRef>(kCFBooleanTrue),
                                  kCFNumberSInt32Type, &untouched));
    EXPECT_EQ(untouched, 99);
    double real = 0;
    EXPECT_FALSE(CFNumberGetValue(Number(kCFNumberSInt64Type, (SInt64{1} << 53) + 1),
                                  kCFNumberFloat64Type, &real));
}

TEST(Values, EqualAcrossNumberKindsButNeverAcrossTypes) {
    const auto one = Number(kCFNumberSInt32Type, SInt32{1});
    const auto real = Number(kCFNumberFloat64Type, 1.0);
    EXPECT_TRUE(CFEqual(one, real));
    EXPECT_EQ(CFHash(one), CFHash(real));
    EXPECT_FALSE(CFEqual(one, kCFBooleanTrue));
    // 2^53 + 1 has no double of its own.
    EXPECT_FALSE(CFEqual(Number(kCFNumberSInt64Type, (SInt64{1} << 53) + 1),
                         Number(kCFNumberFloat64Type, 9007199254740992.0)));
}

TEST(Dictionaries, KeepTheOrderAndCompareWithoutIt) {
    const auto make = [](std::initializer_list<CFStringRef> keys) {
        auto dictionary =
            Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
        for (CFStringRef key : keys) CFDictionarySetValue(dictionary, key, key);
        return dictionary;
    };
    const auto first = make({CFSTR("b"), CFSTR("a"), CFSTR("c")});
    EXPECT_TRUE(CFEqual(first, make({CFSTR("c"), CFSTR("b"), CFSTR("a")})));
    CFDictionaryRemoveValue(first, CFSTR("b"));
    CFDictionarySetValue(first, CFSTR("b"), kCFBooleanTrue);
    CFTypeRef keys[3];
    CFDictionaryGetKeysAndValues(first, keys, nullptr);
    EXPECT_EQ(CFStringToUTF8(static_cast<CFStringRef>(keys[0])), "a");
    EXPECT_EQ(CFStringToUTF8(static_cast<CFStringRef>(keys[2])), "b");

    const auto copy = Owned<CFDictionaryRef>::Adopt(CFDictionaryCreateCopy(nullptr, first));
    CFDictionaryRemoveAllValues(const_cast<CFMutableDictionaryRef>(copy.get()));
    EXPECT_EQ(CFDictionaryGetCount(copy), 3) << "an immutable dictionary was emptied";
    // Wrong kinds are no dictionaries.
    EXPECT_EQ(CFDictionaryGetValue(reinterpret_cast<CFDictionaryRef>(CFSTR("x")), CFSTR("a")),
              nullptr);
}

int retained = 0;

TEST(Arrays, KeepElementsWithTheirOwnCallbacks) {
    const CFArrayCallBacks counting{0,
                                    [](CFAllocatorRef, const void* element) {
                                        ++retained;
                                        return element;
                                    },
                                    [](CFAllocatorRef, const void*) { --retained; }, nullptr,
                                    nullptr};
    {
        const auto array = Owned<CFMutableArrayRef>::Adopt(
            CFArrayCreateMutable(kCFAllocatorDefault, 0, &counting));
        int elements[3];
        for (int& element : elements) CFArrayAppendValue(array, &element);
        CFArrayRemoveValueAtIndex(array, 0);
        CFArraySetValueAtIndex(array, 0, &elements[0]);
        EXPECT_EQ(retained, 2);
        EXPECT_EQ(CFArrayGetFirstIndexOfValue(array, {0, 2}, &elements[2]), 1);
        EXPECT_EQ(CFArrayGetFirstIndexOfValue(array, {1, 99}, &elements[0]), kCFNotFound);
        const auto copy = Owned<CFArrayRef>::Adopt(CFArrayCreateCopy(nullptr, array));
        EXPECT_EQ(retained, 4);
    }
    EXPECT_EQ(retained, 0);
    const void *address = &retained, *value = CFSTR("value");
    const auto bare = Owned<CFArrayRef>::Adopt(CFArrayCreate(nullptr, &address, 1, nullptr));
    const auto values =
        Owned<CFArrayRef>::Adopt(CFArrayCreate(nullptr, &value, 1, &kCFTypeArrayCallBacks));
    EXPECT_FALSE(CFEqual(values, bare) || CFEqual(bare, values)) << "an address is no value";
}

}  // namespace
