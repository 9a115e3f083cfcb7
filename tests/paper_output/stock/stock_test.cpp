// A paper, on its way through the ticket and through its setters.
#include "paper_output/stock/stock.h"

#include <gtest/gtest.h>

#include "support/dictionaries.h"

namespace kalmo::test {
namespace {

Stock Made(const char* entries) { return Stock(Dictionary(entries)); }

TEST(Stock, TicketFormHasItsRules) {
    const std::string all =
        "Type=6 CustomType=t Modulus=9 Color=10 CustomColor=c Weight=80 Punched=2 Description=d "
        "SidesCoated=1 kCoatingType=4 Finish=5 kGrain=6 CustomName=n CustomNameOnly=true "
        "CustomComment=r Source=10";
    const struct {
        const char* why;
        std::string in, out;
    } rows[] = {
        {"all fields but the size", all, all},
        {"sides without size", "Width=2100 Length=2970", "Type=unset"},
        {"custom size", "Size=75 Width=9 Length=unset Type=1",
         "Size=75 Width=9 Length=unset Type=1"},
        {"another size", "Size=1 Width=2100 Type=1", "Size=1 Type=1"},
        {"modulus of other tab stock", "Type=24 Modulus=5", "Type=24"},
        {"modulus of precut tabs", "Modulus=5 Type=4", "Type=4 Modulus=5"},
        {"coating without sides", "Type=1 kCoatingType=3", "Type=1"},
        {"stored color of a transparency", "Type=2 Color=3", "Type=2 Color=3"},
        {"nothing given", "Type=1 CustomName=\"\" CustomNameOnly=false", "Type=1"},
        {"wrong kinds", "Size=\"75\" Color=true Type=true CustomName=3 CustomNameOnly=1",
         "Type=unset"},
        {"too large", "Weight=4294967376 Type=1", "Type=1"},
    };
    for (const auto& row : rows) {
        const Stock stock = Made(row.in.c_str());
        EXPECT_TRUE(
            CFEqual(Owned<CFMutableDictionaryRef>::Adopt(stock.asTicket()), Dictionary(row.out)))
            << row.why;
    }
    EXPECT_TRUE(CFEqual(Owned<CFMutableDictionaryRef>::Adopt(Stock().asTicket()),
                        Dictionary("Type=unset Color=1")));
}

TEST(Stock, SettersKeepSizeAndColorInStep) {
    Stock stock;
    stock.setWidth(kUnset);
    EXPECT_EQ(stock.size(), kUnset);
    stock.setLength(2970);
    stock.setWidth(2100);
    EXPECT_EQ(std::pair(stock.size(), stock.length()), std::pair(kStockSizeCustom, 2970));
    stock.setSize(4);
    EXPECT_EQ(std::pair(stock.width(), stock.length()), std::pair(kUnset, kUnset));
    stock.setType(kStockTypeTransparency);
    EXPECT_EQ(stock.color(), kStockColorClear);
    stock.setColor(3);
    Stock assigned;
    assigned = stock;
    EXPECT_EQ(Stock(stock).color(), 3);
    EXPECT_EQ(assigned.color(), kStockColorClear) << "assigned through the setters";
}

TEST(Stock, EqualityLooksAtEveryField) {
    for (const char* other : {"Color=2", "SidesCoated=1", "Source=10", "CustomNameOnly=true",
                              "CustomComment=x", "CustomType=x", "kGrain=0"})
        EXPECT_FALSE(Made(other) == Made("")) << other;
    Stock stock = Made("Description=Thick");
    EXPECT_TRUE(stock == Made("Description=thICK"));
    stock.setComment(nullptr);
    EXPECT_FALSE(stock == Stock(stock)) << "no text equals nothing, itself neither";
}

TEST(Stock, DefaultsLeaveWhatTheyDoNotName) {
    Stock stock =
        Made("Size=75 Width=9 Type=6 Modulus=2 CustomName=n CustomNameOnly=true Source=10");
    DefaultStock(&stock, JobContext::job);
    EXPECT_TRUE(stock == Made("Size=1 Type=1 Color=1 Source=10"));
    DefaultStock(&stock, JobContext::insert);
    EXPECT_TRUE(stock == Made("Source=10"));
}

}  // namespace
}  // namespace kalmo::test
