// Strings: encodings, formats from untrusted tables; values: exactness.
#include "foundation/strings_table.h"
#include "support/dictionaries.h"
#include "support/test.h"

namespace kalmo::test {
namespace {

TEST(Strings, AreReadStrictlyInTheirEncoding) {
    const std::tuple<const char*, const char*, CFStringEncoding, const char*> rows[] = {
        {"UTF-8", "\xC3\xA4\xF0\x9F\x98\x80", kCFStringEncodingUTF8, "ä😀"},
        {"invalid UTF-8", "a\xFF", kCFStringEncodingUTF8, nullptr},
        {"Mac Roman", "\x8A", kCFStringEncodingMacRoman, "ä"},
        {"Shift-JIS", "\x93\xFA\x96\x7B", kCFStringEncodingShiftJIS, "日本"},
        {"half a Shift-JIS character", "\x93", kCFStringEncodingShiftJIS, nullptr},
        {"no ASCII", "\xE4", kCFStringEncodingASCII, nullptr},
    };
    for (const auto& [why, bytes, encoding, utf8] : rows) {
        SCOPED_TRACE(why);
        const auto string =
            Owned<CFStringRef>::Adopt(CFStringCreateWithCString(nullptr, bytes, encoding));
        ASSERT_EQ(string.get() != nullptr, utf8 != nullptr);
        if (!utf8) continue;
        EXPECT_EQ(CFStringToUTF8(string), utf8);
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
        "\"c\" = \"2\";\n");
    EXPECT_EQ(table.texts.size(), 2u);
    EXPECT_EQ(table.texts.at("a"), "1 \"quoted\" ä\n");
    EXPECT_EQ(table.texts.at("c"), "2");
    ASSERT_GE(table.faults.size(), 2u);
    EXPECT_EQ(table.faults[0], "line 3: the key \"a\" stands here again");
    EXPECT_TRUE(table.faults[1].starts_with("line 4:"));
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
}

}  // namespace
}  // namespace kalmo::test
