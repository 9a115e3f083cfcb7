// A paper, on its way through the ticket and its setters, and what is said and drawn about it.
#include "paper_output/stock/stock_summary.h"

#include "paper_output/stock/papers.h"
#include "paper_output/stock/separators.h"
#include "paper_output/stock/stock.h"
#include "support/dictionaries.h"

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
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"all", "Size=4 Color=2 Type=1 CustomName=Gloss",
         "Name: Gloss\nA4\nColor: Blue\nType: Plain"},
        {"choices the printer lacks", "Size=2 Color=9 Type=-1", "Same as the job"},
        {"precut tabs", "Type=4 Modulus=5", "Type: Precut tab stock (5)"},
        {"tabs of a name", "Type=6 Modulus=3 CustomType=T", "Type: T (3)"},
        {"no count is known", "Type=24 Modulus=3", "Type: Tabs"},
        {"own words", "Type=7 CustomType=Felt Color=10 CustomColor=Mauve",
         "Color: Mauve\nType: Felt"},
        {"inserted", "Color=2 Type=1 Source=10", "Type: Plain\nPost-print inserter"},
    };
    for (const auto& [why, entries, summary] : rows) {
        const Stock stock(Dictionary(entries));
        EXPECT_EQ(shown(&stock, JobContext::cover), summary) << why;
    }
    EXPECT_EQ(shown(nullptr, JobContext::cover), "");
    const Stock unset(nullptr);
    EXPECT_EQ(shown(&unset, JobContext::job), "Printer’s default");
}

TEST_F(StockSummary, OwnSizesAreToldInTheUsersUnit) {
    const Stock stock(Dictionary("Size=75 Width=2100 Length=1485"));
    EXPECT_EQ(shown(&stock, JobContext::insert), "Custom (8.27 × 5.85 in)");
    setenv("LC_ALL", "en_GB.UTF-8", 1);
    EXPECT_EQ(shown(&stock, JobContext::insert), "Custom (210 × 148.5 mm)");
}

TEST_F(StockSummary, SeparatorsAddTheirLine) {
    const LooseTicket ticket;
    Separators separators;
    separators.option = kBlankSeparators;
    separators.stock.setType(1);
    EXPECT_EQ(SyncSeparatorsToTicket(ticket, separators), noErr);
    Separators read;
    SyncSeparatorsFromTicket(ticket, &read);
    label.setText("A4");
    AppendSeparatorSummary(control, bundle, read.option, read.stock);
    EXPECT_EQ(label.text(), "A4\nSeparators: Blank (Color: White, Type: Plain)");
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

TEST(Stock, TicketFormHasItsRules) {
    const std::string all =
        "Type=6 CustomType=t Modulus=9 Color=10 CustomColor=c Weight=80 Punched=2 Description=d "
        "SidesCoated=1 kCoatingType=4 Finish=5 kGrain=6 CustomName=n CustomNameOnly=true "
        "CustomComment=r Source=10";
    const std::tuple<const char*, std::string, std::string> rows[] = {
        {"all fields but the size", all, all},
        {"sides without size", "Width=2100 Length=2970", "Type=unset"},
        {"custom size", "Size=75 Width=9 Length=unset Type=1",
         "Size=75 Width=9 Length=unset Type=1"},
        {"another size", "Size=1 Width=2100 Type=1", "Size=1 Type=1"},
        {"modulus of other tab stock", "Type=24 Modulus=5", "Type=24"},
        {"stored color of a transparency", "Type=2 Color=3", "Type=2 Color=3"},
        {"nothing given", "Type=1 CustomName=\"\" CustomNameOnly=false", "Type=1"},
        {"wrong kinds", "Size=\"75\" Color=true Type=true CustomName=3 CustomNameOnly=1",
         "Type=unset"},
        {"too large", "Weight=4294967376 Type=1", "Type=1"},
    };
    for (const auto& [why, in, out] : rows) {
        const Stock stock(Dictionary(in));
        EXPECT_TRUE(
            CFEqual(Owned<CFMutableDictionaryRef>::Adopt(stock.asTicket()), Dictionary(out)))
            << why;
    }
    EXPECT_TRUE(CFEqual(Owned<CFMutableDictionaryRef>::Adopt(Stock().asTicket()),
                        Dictionary("Type=unset Color=1")));
}

TEST(Stock, SettersKeepSizeAndColorInStep) {
    Stock stock;
    stock.setLength(2970);
    stock.setWidth(2100);
    EXPECT_EQ(std::pair(stock.size(), stock.length()), std::pair(kStockSizeCustom, 2970));
    stock.setSize(4);
    EXPECT_EQ(std::pair(stock.width(), stock.length()), std::pair(kUnset, kUnset));
    stock.setType(kStockTypeTransparency);
    EXPECT_EQ(stock.color(), kStockColorClear);
}

}  // namespace
}  // namespace kalmo::test
