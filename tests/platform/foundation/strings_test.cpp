// Strings: encodings, formats from untrusted tables, searching.
#include <gtest/gtest.h>

#include <cstring>

#include "foundation/number.h"
#include "foundation/strings_table.h"
#include "support/values.h"

namespace kalmo::test {
namespace {

TEST(Strings, AreReadStrictlyInTheirEncoding) {
    const struct {
        const char* why;
        const char* bytes;
        CFStringEncoding encoding;
        const char* utf8;  // null: refused
    } rows[] = {
        {"UTF-8", "\xC3\xA4\xF0\x9F\x98\x80", kCFStringEncodingUTF8, "ä😀"},
        {"invalid UTF-8", "a\xFF", kCFStringEncodingUTF8, nullptr},
        {"Latin 1", "\xE4", kCFStringEncodingISOLatin1, "ä"},
        {"Mac Roman", "\x8A", kCFStringEncodingMacRoman, "ä"},
        {"Shift-JIS", "\x93\xFA\x96\x7B", kCFStringEncodingShiftJIS, "日本"},
        {"half a Shift-JIS character", "\x93", kCFStringEncodingShiftJIS, nullptr},
        {"no ASCII", "\xE4", kCFStringEncodingASCII, nullptr},
        {"unknown encoding", "a", 0x7777, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto string =
            Owned<CFStringRef>::Adopt(CFStringCreateWithCString(nullptr, row.bytes, row.encoding));
        ASSERT_EQ(string.get() != nullptr, row.utf8 != nullptr);
        if (!row.utf8) continue;
        EXPECT_EQ(CFStringToUTF8(string), row.utf8);
        char back[16];
        const CFIndex size = static_cast<CFIndex>(std::strlen(row.bytes)) + 1;
        EXPECT_TRUE(CFStringGetCString(string, back, size, row.encoding));
        EXPECT_STREQ(back, row.bytes);
        EXPECT_FALSE(CFStringGetCString(string, back, size - 1, row.encoding)) << "no room";
    }
    const UniChar lone[] = {u'a', 0xD800, u'b'};
    EXPECT_EQ(TakeText(CFStringCreateWithCharacters(nullptr, lone, 3)), "a\uFFFDb");
}

TEST(Strings, FillFormatsWithoutTrustingThem) {
    const auto create = [](CFNumberType type, auto value) {
        return Owned<CFNumberRef>::Adopt(CFNumberCreate(nullptr, type, &value));
    };
    const auto number = create(kCFNumberSInt32Type, SInt32{4});
    const auto wide = create(kCFNumberSInt64Type, SInt64{1} << 40);
    const auto real = create(kCFNumberFloat64Type, 0.1);
    const struct {
        const char* format;
        const char* text;
    } rows[] = {
        {"%d to %ld of %@, 100 %%", "4 to 1099511627776 of name, 100 %"},
        {"%3$@: %2$ld-%1$d", "name: 1099511627776-4"},
        {"%s%n%x %", "%s%n%x %"},
        {"%d %ld %@ %@ %d %@", "4 1099511627776 name 0.1 %d %@"},
        {"%0$@ %99999999999999999999$@ %$@", "%0$@ %99999999999999999999$@ %$@"},
        {"%3$d", "%3$d"},
        {"%2$d", "2147483647"},
        {"%4$@ mm", "0.1 mm"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(TakeText(CFStringCreateWithFormat(nullptr, String(row.format), number.get(),
                                                    wide.get(), CFSTR("name"), real.get())),
                  row.text);
    }
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

}  // namespace
}  // namespace kalmo::test
