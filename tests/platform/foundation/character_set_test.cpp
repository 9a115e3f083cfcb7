#include "foundation/character_set.h"

#include <gtest/gtest.h>

namespace {

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
        {"no set", nullptr, CFSTR(""), false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CFCharacterSetContainsText(row.set, row.text), row.holds) << row.why;
    }
}

}  // namespace
