// Property lists: every type comes back as it was; what is no list is refused before it can do
// harm.
#include <chrono>
#include <clocale>
#include <cstdlib>

#include "support/test.h"

namespace kalmo::test {
namespace {

std::string Bytes(CFDataRef data) {
    return {reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
            static_cast<std::size_t>(CFDataGetLength(data))};
}

TEST(PropertyLists, BringEveryTypeBackAsItWas) {
    const std::pair<const char*, std::vector<const char*>> rows[] = {
        {"real", {"0.10000000000000001", "1.0000000000000001e+300", "4.9406564584124654e-324"}},
        {"integer", {"0", "-1", "9223372036854775807", "-9223372036854775808"}},
        {"string", {" ", "a&#13;\nb\tc", "&lt;&amp;&gt;\"'", "😀\u2028", "]]&gt;"}},
        {"data", {"\nAP8Q\n"}},
        {"date", {"2025-11-16T15:33:20Z"}},
    };
    std::vector<std::string> values = {"<true/>", "<false/>", "<array/>", "<string></string>"};
    for (const auto& [element, texts] : rows)
        for (const std::string text : texts)
            values.push_back(std::string("<") + element + ">" + text + "</" + element + ">");
    for (const std::string& value : values) {
        const auto list = ReadPlist(Plist(value));
        const auto xml = Bytes(Owned<CFDataRef>::Adopt(CFPropertyListCreateXMLData(nullptr, list)));
        EXPECT_TRUE(CFEqual(list, ReadPlist(xml))) << value;
        EXPECT_TRUE(Contains(xml, value)) << value << " as " << xml;
    }
}

std::string Repeated(const std::string& part, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += part;
    return text;
}

TEST(PropertyLists, RefuseWhatIsNoneOrDangerous) {
    const auto nested = [](int depth) {
        return Repeated("<array>", depth) + Repeated("</array>", depth);
    };
    constexpr int kMany = 1'000'000;
    const std::string whole = Plist("<dict><key>a</key><string>text</string></dict>");
    const std::tuple<const char*, std::string, const char*> rows[] = {
        {"empty", "", "no XML property list"},
        {"unknown entity", Plist("<string>&bomb;</string>"), "no well-formed XML property list"},
        {"513 levels", Plist(nested(513)), "nested more than 512 levels deep"},
        {"entity declarations", "<!DOCTYPE plist [<!ENTITY a \"b\">]>" + whole,
         "declarations inside the document type are not accepted"},
        {"depth hidden in quotes", Plist(Repeated("<array a=\"></array>\">", kMany)),
         "a tag ends within quotes"},
        {"depth hidden in an instruction", Plist(Repeated("<array><?a \"?></array>\"?>", kMany)),
         "a tag ends within quotes"},
        {"depth hidden in a comment", Plist(Repeated("<array><!--></array>-->", kMany)),
         "nested more than 512 levels deep"},
        {"integer beyond 64 bits", Plist("<integer>9223372036854775808</integer>"),
         "line 4: no decimal integer of 64 bits"},
        {"half a number", Plist("<real>1.5x</real>"), "line 4: no real number"},
        {"endless real", Plist("<real>1e999</real>"), "line 4: no real number"},
        {"NUL byte", whole + std::string(1, '\0'), "not XML text in UTF-8"},
        {"over 64 MiB", Plist("<string>" + std::string(65u << 20, 'a') + "</string>"),
         "larger than 64 MiB"},
    };
    for (const auto& [why, xml, expected] : rows) {
        std::string reason;
        EXPECT_FALSE(ReadPlist(xml, &reason));
        EXPECT_EQ(reason, expected) << why;
    }
    EXPECT_TRUE(ReadPlist(Plist(nested(512))));
    EXPECT_TRUE(ReadPlist("\xEF\xBB\xBF<plist ><array ><integer> +5 </integer></array ></plist >"));
    const std::size_t end = whole.find("</plist>");
    for (std::size_t cut = 0; cut < end + 8; ++cut)
        EXPECT_FALSE(ReadPlist(whole.substr(0, cut))) << "cut at " << cut;
}

TEST(PropertyLists, KeepRealsWhereTheDecimalPointIsAComma) {
    // A toolkit sets the user's locale for the whole process. Few machines have one with a comma.
    const auto folder = MakeFolder("locales");
    const std::string command = "localedef -i de_DE -f UTF-8 " + (folder / "de_DE.UTF-8").string();
    ASSERT_EQ(std::system(command.c_str()), 0);
    setenv("LOCPATH", folder.c_str(), 1);
    ASSERT_NE(setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr);
    const auto number = Number(kCFNumberFloat64Type, 1.0 / 3);
    const auto xml = Owned<CFDataRef>::Adopt(CFPropertyListCreateXMLData(nullptr, number));
    EXPECT_TRUE(CFEqual(ReadPlist(Bytes(xml)), number));
    EXPECT_STREQ(localeconv()->decimal_point, ",") << "the caller's locale is kept";
    setlocale(LC_NUMERIC, "C");
    unsetenv("LOCPATH");
    EXPECT_TRUE(CFEqual(ReadPlist(Bytes(xml)), number)) << "written with a comma";
}

TEST(PropertyLists, ReadManyReferencesInLinearTime) {
    const auto start = std::chrono::steady_clock::now();
    ReadPlist(Plist("<string>" + Repeated("&#228;x", 500'000) + "</string>"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(PropertyLists, WriteNothingThatCannotBeReadAgain) {
    const auto xml = Owned<CFDataRef>::Adopt(
        CFPropertyListCreateXMLData(nullptr, String(std::string_view("a\x01\0b", 4))));
    const auto back = ReadPlist(Bytes(xml));
    EXPECT_EQ(CFStringToUTF8(static_cast<CFStringRef>(back.get())), "a\uFFFD\uFFFDb");
    // What would be one key when it is written is one as soon as it is read.
    const auto read =
        ReadPlist(Plist("<dict><key>a\x02</key><true/><key>a&#3;</key><true/></dict>"));
    EXPECT_EQ(CFDictionaryGetCount(static_cast<CFDictionaryRef>(read.get())), 1);

    Owned<CFTypeRef> deep = Owned<CFTypeRef>::Retain(CFSTR("leaf"));
    for (int i = 0; i < 513; ++i) {
        const void* element = deep.get();
        deep = Owned<CFTypeRef>::Adopt(CFArrayCreate(nullptr, &element, 1, &kCFTypeArrayCallBacks));
    }
    EXPECT_EQ(CFPropertyListCreateXMLData(nullptr, deep), nullptr);
}

}  // namespace
}  // namespace kalmo::test
