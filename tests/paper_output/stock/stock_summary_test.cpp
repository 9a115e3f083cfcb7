// What is said and drawn about a paper.
#include "paper_output/stock/stock_summary.h"

#include <QLabel>
#include <filesystem>

#include "paper_output/stock/papers.h"
#include "paper_output/stock/separators.h"
#include "support/dictionaries.h"
#include "toolbox/host.h"

namespace kalmo::test {
namespace {

struct StockSummary : PaperTest {
    [[nodiscard]] std::string shown(const Stock* stock, JobContext context) {
        EXPECT_EQ(ShowStockSummary(bundle, control, stock, context), noErr);
        return label.text().toStdString();
    }

    QLabel label;
    ControlRef control = ControlFromWidget(&label);
};

TEST_F(StockSummary, LinesSayWhatThePrinterCallsIt) {
    const struct {
        const char *why, *stock, *summary;
    } rows[] = {
        {"all", "Size=4 Color=2 Type=1 CustomName=Gloss",
         "Name: Gloss\nA4\nColor: Blue\nType: Plain"},
        {"choices the printer lacks", "Size=2 Color=9 Type=-1", "Same as the job"},
        {"precut tabs", "Type=4 Modulus=5", "Type: Precut tab stock (5)"},
        {"tabs of a name", "Type=6 Modulus=3 CustomType=T", "Type: T (3)"},
        {"no count is known", "Type=24 Modulus=3", "Type: Tabs"},
        {"own words", "Type=7 CustomType=Felt Color=10 CustomColor=Mauve",
         "Color: Mauve\nType: Felt"},
        {"own words that are missing", "Type=7 Color=10", "Same as the job"},
        {"inserted", "Color=2 Type=1 Source=10", "Type: Plain\nPost-print inserter"},
    };
    for (const auto& row : rows) {
        const Stock stock(Dictionary(row.stock));
        EXPECT_EQ(shown(&stock, JobContext::cover), row.summary) << row.why;
    }
    EXPECT_EQ(shown(nullptr, JobContext::cover), "");
    const Stock unset(nullptr);
    EXPECT_EQ(shown(&unset, JobContext::job), "Printer's default");
}

TEST_F(StockSummary, OwnSizesAreToldInTheUsersUnit) {
    const Stock stock(Dictionary("Size=75 Width=2100 Length=1485"));
    EXPECT_EQ(shown(&stock, JobContext::insert), "Custom (8.27 × 5.85 in)");
    setenv("LC_ALL", "en_GB.UTF-8", 1);
    EXPECT_EQ(shown(&stock, JobContext::insert), "Custom (210 × 148.5 mm)");
    setenv("LC_ALL", "C.UTF-8", 1);
}

TEST_F(StockSummary, SeparatorsAddTheirLine) {
    const PMTicketRef ticket = PMTicketCreate();
    Separators separators;
    separators.option = kBlankSeparators;
    separators.stock.setType(1);
    EXPECT_EQ(SyncSeparatorsToTicket(ticket, separators), noErr);
    Separators read;
    SyncSeparatorsFromTicket(ticket, &read);
    label.setText("A4");
    AppendSeparatorSummary(control, bundle, read.option, read.stock);
    EXPECT_EQ(label.text(), "A4\nSeparators: Blank (Color: White, Type: Plain)");
    PMTicketSetItem(ticket, CFSTR("t"), CFSTR("com.kalmo.print.SeparatorStock"), Value("x"), false);
    for (const auto& [option, summary] :
         {std::pair{"4", ""}, {"\"3\"", ""}, {"3", "Separators: Printed"}}) {
        PMTicketSetItem(ticket, CFSTR("t"), CFSTR("com.kalmo.print.SeparatorOption"), Value(option),
                        false);
        EXPECT_EQ(SyncSeparatorsFromTicket(ticket, &read), noErr);
        label.clear();
        AppendSeparatorSummary(control, bundle, read.option, read.stock);
        EXPECT_EQ(label.text(), summary) << "on the job's own paper";
    }
    PMTicketDispose(ticket);
    EXPECT_EQ(SyncSeparatorsFromTicket(ticket, &read), kPMInvalidTicket);
}

TEST(StockPicture, ExistsForEveryPaper) {
    for (SInt32 number = 0; number < 54 * 26; ++number) {
        Stock stock;
        stock.setType(number / 26 - 1);
        stock.setColor(number % 26 - 1);
        auto file = ProductBundle() / "Contents" / "Resources" / StockPicture(stock);
        ASSERT_TRUE(exists(file.replace_extension("svg"))) << file;
    }
    EXPECT_EQ(StockPicture(Stock(nullptr)), "Paper_Plain-White.gif");
    EXPECT_EQ(StockPicture(Stock(Dictionary("Type=8 Color=2"))), "Paper_Envelope-Blue.gif");
}

}  // namespace
}  // namespace kalmo::test
