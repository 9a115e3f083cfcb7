// Strings: encodings, formats from untrusted tables; values: exactness, sets of characters.
#include <cstring>

#include "foundation/character_set.h"
#include "foundation/strings_table.h"
#include "support/dictionaries.h"
#include "support/test.h"

namespace kalmo::test {
namespace {

TEST(Strings, AreReadStrictlyInTheirEncoding) {
    const std::tuple<const char*, const char*, CFStringEncoding, const char*> rows[] = {
        {"UTF-8", "\xC3\xA4\xF0\x9F\x98\x80", kCFStringEncodingUTF8, "ä😀"},
        {"invalid UTF-8", "a\xFF", kCFStringEncodingUTF8, nullptr},
        {"Latin 1", "\xE4", kCFStringEncodingISOLatin1, "ä"},
        {"Mac Roman", "\x8A", kCFStringEncodingMacRoman, "ä"},
        {"Shift-JIS", "\x93\xFA\x96\x7B", kCFStringEncodingShiftJIS, "日本"},
        {"half a Shift-JIS character", "\x93", kCFStringEncodingShiftJIS, nullptr},
        {"no ASCII", "\xE4", kCFStringEncodingASCII, nullptr},
        {"unknown encoding", "a", 0x7777, nullptr},
    };
    for (const auto& [why, bytes, encoding, utf8] : rows) {
        SCOPED_TRACE(why);
        const auto string =
            Owned<CFStringRef>::Adopt(CFStringCreateWithCString(nullptr, bytes, encoding));
        ASSERT_EQ(string.get() != nullptr, utf8 != nullptr);
        if (!utf8) continue;
        EXPECT_EQ(CFStringToUTF8(string), utf8);
        char back[16];
        const CFIndex size = static_cast<CFIndex>(std::strlen(bytes)) + 1;
        EXPECT_TRUE(CFStringGetCString(string, back, size, encoding));
        EXPECT_STREQ(back, bytes);
        EXPECT_FALSE(CFStringGetCString(string, back, size - 1, encoding)) << "no room";
    }
    const UniChar lone[] = {u'a', 0xD800, u'b'};
    EXPECT_EQ(TakeText(CFStringCreateWithCharacters(nullptr, lone, 3)), "a\uFFFDb");
}

TEST(Strings, FillFormatsWithoutTrustingThem) {
    const auto number = Number(kCFNumberSInt32Type, SInt32{4});
    const auto wide = Number(kCFNumberSInt64Type, SInt64{1} << 40);
    const auto real = Number(kCFNumberFloat64Type, 0.1);
    const std::tuple<const char*, const char*> rows[] = {
        {"%d to %ld of %@, 100 %%", "4 to 1099511627776 of name, 100 %"},
        {"%3$@: %2$ld-%1$d", "name: 1099511627776-4"},
        {"%s%n%x %", "%s%n%x %"},
        {"%d %ld %@ %@ %d %@", "4 1099511627776 name 0.1 %d %@"},
        {"%0$@ %99999999999999999999$@ %$@", "%0$@ %99999999999999999999$@ %$@"},
        {"%3$d", "%3$d"},
        {"%2$d", "2147483647"},
        {"%4$@ mm", "0.1 mm"},
    };
    for (const auto& [format, text] : rows)
        EXPECT_EQ(TakeText(CFStringCreateWithFormat(nullptr, String(format), number.get(),
                                                    wide.get(), CFSTR("name"), real.get())),
                  text);
}

TEST(StringsTables, ReadWhatIsRightAndNameWhatIsWrong) {
    const StringsTable table = ReadStringsTable(
        "/* comment \"x\" = \"y\"; */\n"
        "\"a\" = \"1 \\\"quoted\\\" \\U00e4\\n\"; // tail\n"
        "\"a\" = \"again\";\n"
        "broken = \"x\";\n"
        "\"b\" \"no sign\";\n"
        "\"c\" = \"2\";\n"
        "\"d\" = \"\\Uzz\";\n"
        "\"open\n\n\n"
        "broken");
    EXPECT_EQ(table.texts.size(), 3u);
    EXPECT_EQ(table.texts.at("a"), "1 \"quoted\" ä\n");
    EXPECT_EQ(table.texts.at("c"), "2");
    ASSERT_GE(table.faults.size(), 4u);
    EXPECT_EQ(table.faults[0], "line 3: the key \"a\" stands here again");
    EXPECT_TRUE(table.faults[1].starts_with("line 4:"));
    EXPECT_EQ(table.texts.at("d"), "\uFFFDzz");
    EXPECT_TRUE(table.faults.back().starts_with("line 11:")) << "lines of an open text count once";
    EXPECT_EQ(ReadStringsTable(std::string_view("\xFF\xFE\"\0k\0\"\0=\0\"\0v\0\"\0;\0", 18))
                  .texts.at("k"),
              "v");
    EXPECT_FALSE(ReadStringsTable("\"k\" = \"\xE4\";").faults.empty());
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
    const std::tuple<const char*, CFCharacterSetRef, CFStringRef, bool> rows[] = {
        {"digits of any script, beyond 16 bits too", digits, CFSTR("0٣९\U0001D7CE"), true},
        {"control characters", controls, CFSTR("\b\r\x7f\u0085\u009f"), true},
        {"a soft hyphen shows", controls, CFSTR("\u00ad"), false},
        {"characters, not ranges", list, CFSTR("5"), false},
        {"half of a character", list, CFSTR("0\U0001D7CF"), false},
    };
    for (const auto& [why, set, text, holds] : rows)
        EXPECT_EQ(CFCharacterSetContainsText(set, text), holds) << why;
}

}  // namespace
}  // namespace kalmo::test
