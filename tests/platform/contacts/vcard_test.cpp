// Cards of every version: read in all their forms, edited by single lines, refused when damaged.
#include <cstring>
#include <ctime>

#include "contacts/card_mapping.h"
#include "contacts/collation.h"
#include "support/test.h"

namespace kalmo::test {
namespace {

using namespace contacts;

std::string CardOf(const std::string& lines, const std::string& version = "3.0") {
    return "BEGIN:VCARD\r\nVERSION:" + version + "\r\n" + lines + "END:VCARD\r\n";
}

Person PersonIn(const std::string& card) {
    const auto record = ReadCard(card);
    if (!record || !std::holds_alternative<Person>(*record)) {
        ADD_FAILURE() << "no person in " << card;
        return {};
    }
    return std::get<Person>(*record);
}

TEST(VCard, EntriesAreReadInEveryForm) {
    const std::tuple<const char*, const char*, Entry> kRows[] = {
        {"3.0", "TEL;TYPE=WORK,FAX:1\r\n", {Label::workFax, "1", ""}},
        {"4.0",
         "TEL;VALUE=uri;TYPE=\"fax,pref\":tel:+1-5;ext=2\r\n",
         {Label::otherFax, "+1-5", ""}},
        {"2.1",
         "TEL;CELL;VOICE;ENCODING=QUOTED-PRINTABLE:=31=\r\n=32\r\n",
         {Label::mobile, "12", ""}},
        {"3.0",
         "A.TEL;TYPE=fax:1\r\na.X-ABLABEL:Lager\\, Tor\r\n",
         {Label::custom, "1", "Lager, Tor"}},
        {"3.0", "item1.TEL:1\r\nitem1.X-ABLabel:_$!<HomeFAX>!$_\r\n", {Label::homeFax, "1", ""}},
        {"3.0", "TEL;X-P=\"a:b;TYPE=FAX\";TYPE=PAGER:1\\,2\r\n", {Label::pager, "1,2", ""}},
        {"3.0", "TEL;TY\r\n PE=CELL:1\r\n\t2\r\n", {Label::mobile, "12", ""}},
    };
    for (const auto& [version, line, entry] : kRows) {
        const Person person = PersonIn(CardOf("FN:A\r\n" + std::string(line), version));
        EXPECT_EQ(person.phones, std::vector<Entry>{entry}) << line;
    }
}

TEST(VCard, NamesAreReadInEveryForm) {
    const std::tuple<const char*, const char*, const char*, const char*, const char*> kRows[] = {
        {"3.0", "FN:x\r\nN:M\xC3\xBCller;Karl\\, der;K;Dr.\r\n", "Karl, der", "M\xC3\xBCller", ""},
        {"4.0", "FN:Only Name\r\nORG:A\\;B;C\r\n", "Only Name", "", "A;B"},
        {"3.0", "FN:Acme\r\nN:;;;;\r\nORG:Acme\r\n", "", "", "Acme"},
        {"3.0", "FN:x\r\nN:M\xC3\r\n \xBCller;K\r\n", "K", "M\xC3\xBCller", ""},
        {"2.1", "N:M\xFCller;K\r\n", "K", "M\xC3\xBCller", ""},
        {"2.1", "N;CHARSET=ISO-8859-15;QUOTED-PRINTABLE:=A4;K\r\n", "K", "\xE2\x82\xAC", ""},
        {"2.1", "N;CHARSET=../none;ENCODING=QUOTED-PRINTABLE:A=\r\n B;K=00\r\n", "K", "A B", ""},
    };
    for (const auto& [version, lines, first, last, organization] : kRows) {
        SCOPED_TRACE(lines);
        const Person person = PersonIn(CardOf(lines, version));
        EXPECT_EQ(person.first, first);
        EXPECT_EQ(person.last, last);
        EXPECT_EQ(person.organization, organization);
    }
}

TEST(VCard, EditTouchesItsOwnLinesOnly) {
    const std::string lines =
        "UID:u\r\nFN:Ada L\r\nN:L;Ada;;Dr.;\r\nORG:A;Dept\r\nTEL;TYPE=WORK,FAX;X-P=1:1\r\n"
        "item1.TEL;TYPE=pref:2\r\nitem1.X-ABLabel:Tor\r\nTEL;TYPE=CELL:3\r\nNOTE:fold\r\n ed\r\n"
        "CATEGORIES:Old,Keep\r\n";
    using Edit = std::function<void(Person&)>;
    // The texts that are others, and what they become.
    const std::tuple<const char*, Edit, std::map<const char*, const char*>> kRows[] = {
        {"a name",
         [](Person& it) { it.last = "M,"; },
         {{"FN:Ada L\r\nN:L;", "FN:Ada M\\,\r\nN:M\\,;"}}},
        {"a number", [](Person& it) { it.phones[0].value = "9"; }, {{"X-P=1:1", "X-P=1:9"}}},
        {"one less",
         [](Person& it) { it.phones.erase(it.phones.begin() + 1); },
         {{"item1.TEL;TYPE=pref:2\r\nitem1.X-ABLabel:Tor\r\n", ""}}},
        {"one more in front",
         [](Person& it) {
             it.phones.insert(it.phones.begin(), {Label::custom, "0", "Lager, Fax"});
         },
         {{"TEL;TYPE=WORK", "item2.TEL:0\r\nitem2.X-ABLabel:Lager Fax\r\nTEL;TYPE=WORK"}}},
        {"a label",
         [](Person& it) {
             it.phones[1] = {Label::homeFax, "2", ""};
         },
         {{"TYPE=pref:2\r\nitem1.X-ABLabel:Tor\r\n", "TYPE=HOME,FAX;TYPE=pref:2\r\n"}}},
        {"groups",
         [](Person& it) {
             it.groups = {"Keep", "New"};
         },
         {{"Old,Keep", "Keep,New"}}},
        {"a company",
         [](Person& it) {
             it.isCompany = true;
             it.full = "Ada L";
         },
         {{"FN:Ada L", "FN:A"}, {"END:", "KIND:org\r\nX-ABShowAs:COMPANY\r\nEND:"}}},
    };
    for (const auto& [why, edit, changes] : kRows) {
        std::string card = CardOf(lines);
        Person person = PersonIn(card);
        edit(person);
        const auto edited = ApplyPerson(card, person).value_or("");
        for (const auto& [was, is] : changes) card.replace(card.find(was), std::strlen(was), is);
        EXPECT_EQ(edited, card) << why;
    }
}

TEST(VCard, EditKeepsTheVersionsWay) {
    Person person = PersonIn(CardOf("N:A\r\nTEL;WORK:1\r\n", "2.1"));
    person.last.clear();
    for (int i = 0; i < 40; ++i) person.last += "\xC3\xBC";
    person.phones = {{Label::homeFax, "1", ""}};
    const std::string old = *ApplyPerson(CardOf("N:A\r\nTEL;WORK:1\r\n", "2.1"), person);
    EXPECT_TRUE(Contains(old, "N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=C3=BC")) << old;
    EXPECT_TRUE(Contains(old, "TEL;HOME;FAX:1\r\n")) << old;
    const std::string newer = *ApplyPerson("", person);
    for (const std::string& text : {old, newer}) {
        EXPECT_EQ(PersonIn(text).last, person.last);
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 77u) << line;
    }
    EXPECT_FALSE(Contains(newer, "\xC3\r\n")) << "a fold inside a character";
}

TEST(VCard, WhatIsNoSingleWholeCardIsNeverWritten) {
    const std::string good = CardOf("FN:A\r\n");
    const std::tuple<const char*, std::string> kRows[] = {
        {"garbage", "not a card\n"},
        {"cut short", good.substr(0, good.size() - 8)},
        {"text behind it", good + "more\r\n"},
        {"a card that lacks its end before another", good.substr(0, good.find("END")) + good},
        {"a null byte", CardOf(std::string("FN:A\0\r\n", 7))},
        {"a version of the future", CardOf("FN:A\r\n", "5.0")},
        {"two cards", good + good},
        {"too large", CardOf("NOTE:" + std::string(kLargestCard, 'x') + "\r\n")},
    };
    EXPECT_TRUE(ReadCard(good));
    for (const auto& [why, text] : kRows) {
        EXPECT_FALSE(ReadCard(text)) << why;
        EXPECT_FALSE(ApplyPerson(text, PersonIn(good))) << why;
        EXPECT_EQ(ReadCards(text).size(), std::string(why) == "two cards" ? 2u : 0u) << why;
    }
}

TEST(VCard, HostileTextTakesTimeByItsSizeOnly) {
    const auto seconds = [](const std::string& piece, std::size_t bytes) {
        std::string lines;
        while (lines.size() < bytes) lines += piece;
        const std::string card = CardOf("FN:A\r\n" + lines + "\r\n");
        const std::clock_t start = std::clock();
        if (const auto record = ReadCard(card)) {
            Person person = std::get<Person>(*record);
            person.phones.clear();
            person.groups = {"x"};
            EXPECT_TRUE(ApplyPerson(card, person));
        }
        return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    };
    for (const char* piece :
         {"\n ", "TEL;", "TEL:1\r\n", "item1.TEL:1\r\nitem1.X-ABLabel:x\r\n", "CATEGORIES:a,b\r\n",
          ",", "\"", "^n", "N;ENCODING=QUOTED-PRINTABLE:=\n", "=\n", "a.", "BEGIN:VCARD\n",
          "\xC3\n \xBC"}) {
        const double little = seconds(piece, 15'000), much = seconds(piece, 240'000);
        // 16 times the text; with its square it would be 256 times.
        EXPECT_LT(much, 80 * little + 0.2) << piece;
    }
}

TEST(Collation, FoldedTextsCompareAndSortKeysOrderAsTheUserExpects) {
    EXPECT_EQ(Folded("STRASSE"), Folded("stra\xC3\x9F"
                                        "e"));
    EXPECT_EQ(Folded("A\xCC\x88Z"), Folded("\xC3\xA4z"));
    EXPECT_TRUE(Folded("\xC3\x84rger").starts_with(Folded("\xC3\xA4R")));
    EXPECT_FALSE(Folded("Arger").starts_with(Folded("\xC3\xA4")));
    setenv("LC_ALL", "de_DE.UTF-8", 1);
    EXPECT_LT(SortKey("\xC3\x84pfel"), SortKey("Zucker"));
    setenv("LC_ALL", "sv_SE.UTF-8", 1);
    EXPECT_GT(SortKey("\xC3\x84pfel"), SortKey("Zucker"));
}

}  // namespace
}  // namespace kalmo::test
