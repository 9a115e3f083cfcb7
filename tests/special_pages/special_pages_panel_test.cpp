// The Special Pages panel: its list, its commands, and the ticket.
#include "special_pages/special_pages_panel.h"

#include "settings/ticket_keys.h"
#include "support/dictionaries.h"
#include "support/panel_rig.h"

namespace kalmo::test {
namespace {

#define kPagesPerSheetKey CFSTR("com.apple.print.PrintSettings.PMLayoutNUp")
#define kKeyPrefix "com.kalmo.print.SpecialPages."
constexpr SInt32 kAddInserts = 200, kAddExceptions = 300, kEdit = 1200, kDelete = 1300,
                 kDeleteAll = 1400, kUndo = 1500, kUp = 1600, kDown = 1700;

struct SpecialPagesPanel : testing::Test, PanelRig {
    SpecialPagesPanel() : PanelRig(_GetSpecialPagesPanelInterface) {}

    void putList(const char* name, const std::vector<std::string>& pages) {
        const auto array = Owned<CFMutableArrayRef>::Adopt(
            CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks));
        for (const std::string& page : pages) CFArrayAppendValue(array, Dictionary(page));
        put(key(name), array);
    }
    static CFStringRef key(const std::string& name) {
        return CFStringMakeConstant((kKeyPrefix + name).c_str());
    }
    /// A front cover, an exception and an insert of page 4, one insert before page 1, two of
    /// page 7.
    void show() {
        put(key("FrontCover"), Dictionary("SidesImaged=1"));
        putList("InsertList",
                {"StartPage=4 Quantity=2", "StartPage=0", "StartPage=7", "StartPage=7"});
        putList("ExceptionList", {"StartPage=4 EndPage=6 SidesImaged=1"});
        PanelRig::show();
    }

    QTreeView* list() { return control<QTreeView>(1000); }
    QToolButton* button(SInt32 id) { return control<QToolButton>(id); }
    /// Pages and types, a line each.
    std::string rows(int columns = 2) {
        QStringList lines;
        for (int row = 0; row < list()->model()->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < columns; ++column)
                cells << list()->model()->index(row, column).data().toString();
            lines << cells.join(" ");
        }
        return lines.join("|").toStdString();
    }
    void select(const std::vector<int>& wanted) {
        list()->clearSelection();
        for (const int row : wanted)
            list()->selectionModel()->select(
                list()->model()->index(row, 0),
                QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    /// Edit, Delete, Delete all, Undo, Move up, Move down: a letter for what can be used.
    std::string usable() {
        std::string letters;
        const std::pair<SInt32, char> all[] = {{kEdit, 'E'}, {kDelete, 'D'}, {kDeleteAll, 'A'},
                                               {kUndo, 'U'}, {kUp, '+'},     {kDown, '-'}};
        for (const auto& [id, letter] : all)
            if (button(id)->isEnabled()) letters += letter;
        return letters;
    }
};

const std::string kShown =
    "Front Cover|Before page 1 Insert|4-6 Exception|4 Insert|7 Insert|7 Insert";

TEST_F(SpecialPagesPanel, TheTicketsPagesStandInOrderAndGoBackAsTheyCame) {
    show();
    EXPECT_EQ(rows(), kShown);
    EXPECT_EQ(rows(3).substr(0, 42), "Front Cover Blank or preprinted; White|Bef");
    EXPECT_EQ(sync(kSyncToTicket), noErr);
    EXPECT_EQ(sync(kSyncToUI), noErr);
    EXPECT_EQ(rows(), kShown);
}

TEST_F(SpecialPagesPanel, TheSelectionDecidesWhatCanBeDone) {
    show();
    const struct {
        std::vector<int> rows;
        const char* usable;
    } cases[] = {{{}, "A"},      {{0}, "EDA"},  {{1}, "EDA-"},    {{2}, "EDA"},    {{3}, "EDA-"},
                 {{4}, "EDA+-"}, {{5}, "EDA+"}, {{5, 4}, "DA+-"}, {{4, 5}, "DA+"}, {{4, 2}, "DA"}};
    for (const auto& each : cases) {
        select(each.rows);
        EXPECT_EQ(usable(), each.usable) << testing::PrintToString(each.rows);
    }
    select({4});
    button(kUp)->click();
    EXPECT_EQ(rows(), "Front Cover|Before page 1 Insert|4-6 Exception|7 Insert|4 Insert|7 Insert");
    QTest::keyClick(list(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(rows(), kShown);
}

TEST_F(SpecialPagesPanel, EditingKeepsThePlacesEvenWhenAllPagesAreReadAgain) {
    show();
    for (int row = 0; row < 4; ++row) {
        SCOPED_TRACE(row);
        select({row});
        driver.expectPress("OK");
        button(kEdit)->click();
        EXPECT_EQ(rows(), kShown);
    }
    select({2});
    driver.expect([&](QWidget& dialog) {
        sync(kSyncToTicket);
        sync(kSyncToUI);  // as when a document arrives: all pages are others now
        FindControl<QPushButton>(dialog, 'KPDE', 901)->click();
    });
    button(kEdit)->click();
    EXPECT_EQ(rows(), kShown);
}

TEST_F(SpecialPagesPanel, DeletingAsksAndWhatWasThereComesBackOnce) {
    show();
    select({2});
    driver.expectPress("Yes");
    button(kDelete)->click();
    EXPECT_EQ(rows(), "Front Cover|Before page 1 Insert|4 Insert|7 Insert|7 Insert");
    driver.expectPress("No");
    select({0});
    QTest::keyClick(list(), Qt::Key_Delete);
    button(kUndo)->click();
    EXPECT_EQ(rows(), "Front Cover|Before page 1 Insert|4 Insert|7 Insert|7 Insert")
        << "the refused deletion had taken the place of the other";
    EXPECT_FALSE(button(kUndo)->isEnabled());
    driver.expectPress("Yes");
    button(kDeleteAll)->click();
    EXPECT_EQ(rows(), "");
    sync(kSyncToTicket);
    for (const char* name : {"FrontCover", "InsertList", "ExceptionList"})
        EXPECT_FALSE(PMTicketContainsItem(printer.ticket, key(name))) << name;
}

TEST_F(SpecialPagesPanel, PagesThatShareASheetHaveNoneOfTheirOwn) {
    for (const CFStringRef flag : {kPagesPerSheetKey, kBookletLayoutKey}) {
        if (!list()) show();
        for (const bool on : {true, false}) {
            put(flag, on ? kCFBooleanTrue : kCFBooleanFalse);
            sync(kSyncToUI);
            EXPECT_EQ(button(kAddInserts)->isEnabled(), !on);
            EXPECT_EQ(button(kAddExceptions)->isEnabled(), !on);
        }
    }
    put(kPagesPerSheetKey, kCFBooleanTrue);
    button(kAddInserts)->click();  // a dialog would fail the test
    EXPECT_FALSE(button(kAddInserts)->isEnabled()) << "found out when it was pressed";
}

}  // namespace
}  // namespace kalmo::test
