#include "foundation/character_set.h"

#include <gtest/gtest.h>

namespace {

CFCharacterSetRef Digits() { return CFCharacterSetGetPredefined(kCFCharacterSetDecimalDigit); }
CFCharacterSetRef Controls() { return CFCharacterSetGetPredefined(kCFCharacterSetControl); }

Owned<CFCharacterSetRef> SetOf(CFStringRef characters) {
    return Owned<CFCharacterSetRef>::Adopt(
        CFCharacterSetCreateWithCharactersInString(kCFAllocatorDefault, characters));
}

TEST(CharacterSets, SayWhetherTheyHoldAText) {
    const auto list = SetOf(CFSTR("0-9, \U0001D7CE"));
    const struct {
        const char* why;
        CFCharacterSetRef set;
        CFStringRef text;
        bool holds;
    } rows[] = {
        {"digits of any script, beyond 16 bits too", Digits(), CFSTR("0٣९\U0001D7CE"), true},
        {"neither sign nor fraction nor superscript", Digits(), CFSTR("²"), false},
        {"one stranger is enough", Digits(), CFSTR("12a3"), false},
        {"control characters", Controls(), CFSTR("\b\r\x7f\u0085\u009f"), true},
        {"soft hyphen and space are none", Controls(), CFSTR("\u00ad"), false},
        {"characters, not ranges or patterns", list, CFSTR("5"), false},
        {"every character of the string", list, CFSTR(", 9-0\U0001D7CE"), true},
        {"half a character", list, CFSTR("\U0001D7CF"), false},
        {"nothing", list, CFSTR(""), true},
        {"no set", nullptr, CFSTR(""), false},
        {"no text", list, nullptr, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CFCharacterSetContainsText(row.set, row.text), row.holds) << row.why;
    }
    EXPECT_TRUE(CFCharacterSetIsCharacterMember(list, u'-'));
    EXPECT_FALSE(CFCharacterSetIsCharacterMember(list, u'5'));
    EXPECT_FALSE(CFCharacterSetIsCharacterMember(nullptr, u'5'));
}

TEST(CharacterSets, AreCountedValues) {
    const std::size_t before = CFLiveValueCount();
    {
        const auto one = SetOf(CFSTR("abc"));
        const auto same = SetOf(CFSTR("cbba"));
        EXPECT_TRUE(CFEqual(one, same));
        EXPECT_EQ(CFHash(one), CFHash(same));
        EXPECT_FALSE(CFEqual(one, SetOf(nullptr)));
        EXPECT_EQ(CFGetTypeID(one), CFCharacterSetGetTypeID());
    }
    CFRelease(Digits());
    EXPECT_EQ(CFLiveValueCount(), before);
}

}  // namespace
