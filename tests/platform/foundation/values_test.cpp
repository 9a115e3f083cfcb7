// Values: exactness, equality, collections, sets of characters.
#include <gtest/gtest.h>

#include "foundation/character_set.h"
#include "foundation/number.h"
#include "support/dictionaries.h"

namespace kalmo::test {
namespace {

template <typename Value>
Owned<CFNumberRef> Number(CFNumberType type, Value value) {
    return Owned<CFNumberRef>::Adopt(CFNumberCreate(kCFAllocatorDefault, type, &value));
}

TEST(Values, EqualAcrossNumberKindsButNeverAcrossTypes) {
    const auto one = Number(kCFNumberSInt32Type, SInt32{1});
    EXPECT_TRUE(CFEqual(one, Number(kCFNumberFloat64Type, 1.0)));
    EXPECT_FALSE(CFEqual(one, kCFBooleanTrue));
    // 2^53 + 1 has no double of its own.
    EXPECT_FALSE(CFEqual(Number(kCFNumberSInt64Type, (SInt64{1} << 53) + 1),
                         Number(kCFNumberFloat64Type, 9007199254740992.0)));
    const auto first = Dictionary("b=1 a=2 c=3");
    EXPECT_TRUE(CFEqual(first, Dictionary("c=3 b=1 a=2")));
    const auto copy = Owned<CFDictionaryRef>::Adopt(CFDictionaryCreateCopy(nullptr, first));
    CFDictionaryRemoveAllValues(const_cast<CFMutableDictionaryRef>(copy.get()));
    EXPECT_TRUE(CFEqual(first, copy)) << "an immutable dictionary was emptied";
    EXPECT_EQ(CFDictionaryGetValue(reinterpret_cast<CFDictionaryRef>(CFSTR("x")), CFSTR("a")),
              nullptr)
        << "a string is no dictionary";
}

TEST(CharacterSets, SayWhetherTheyHoldAText) {
    const CFCharacterSetRef digits = CFCharacterSetGetPredefined(kCFCharacterSetDecimalDigit);
    const CFCharacterSetRef controls = CFCharacterSetGetPredefined(kCFCharacterSetControl);
    const auto list = Owned<CFCharacterSetRef>::Adopt(
        CFCharacterSetCreateWithCharactersInString(kCFAllocatorDefault, CFSTR("0-9, \U0001D7CE")));
    const struct {
        const char* why;
        CFCharacterSetRef set;
        CFStringRef text;
        bool holds;
    } rows[] = {
        {"digits of any script, beyond 16 bits too", digits, CFSTR("0٣९\U0001D7CE"), true},
        {"control characters", controls, CFSTR("\b\r\x7f\u0085\u009f"), true},
        {"a soft hyphen shows", controls, CFSTR("\u00ad"), false},
        {"characters, not ranges", list, CFSTR("5"), false},
        {"half of a character", list, CFSTR("0\U0001D7CF"), false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CFCharacterSetContainsText(row.set, row.text), row.holds) << row.why;
}

}  // namespace
}  // namespace kalmo::test
