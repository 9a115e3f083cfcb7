// Special pages in words, for the list and for the dialogs.
#include "special_pages/special_pages_summary.h"

#include "paper_output/stock/papers.h"
#include "support/dictionaries.h"

namespace kalmo::test {
namespace {

struct SpecialPagesSummary : PaperTest {
    template <typename Page>
    [[nodiscard]] std::string listed(const char* page, const char* stock, SInt32 modulus = kUnset) {
        Page made(Dictionary(page));
        made.stock() = Stock(Dictionary(stock));
        if (modulus != kUnset) made.stock().setModulus(modulus);
        return TakeText(CopySpecialPageSummary(made, bundle));
    }
};

TEST_F(SpecialPagesSummary, PartsStandInOrder) {
    EXPECT_EQ(listed<Cover>("SidesImaged=4", "CustomName=Gloss Size=4 Color=2 Type=1"),
              "Paper name: Gloss; Printed; A4; Blue; Plain");
    EXPECT_EQ(listed<Cover>("", "Color=2"), "Blank or preprinted; Blue");
    EXPECT_EQ(listed<Cover>("SidesImaged=2", "Color=2"), "Blue") << "a value without words";
    EXPECT_EQ(listed<Insert>("Quantity=3", "Size=2 Source=10 Color=2"),
              "Quantity [3]; Post-print inserter");
    EXPECT_EQ(listed<Insert>("", "Size=4 Source=1 CustomName=N"), "Paper name: N; Quantity [1]");
    EXPECT_EQ(listed<ExceptionPage>("SidesImaged=1", "Color=10 CustomColor=Mauve"),
              "One-sided; Mauve");
    EXPECT_EQ(listed<ExceptionPage>("", "Type=6 CustomType=T"), "T (-2147483648)");
    EXPECT_EQ(listed<ExceptionPage>("", "Type=6 Modulus=3 CustomType=T"), "T (3)");
    EXPECT_EQ(listed<ExceptionPage>("", "Type=4 Modulus=5"), "Precut tab stock (5)");
    EXPECT_EQ(listed<ExceptionPage>("", "Type=24", 5), "Tabs (5)");
    EXPECT_EQ(listed<ExceptionPage>("", "Type=24", 0), "Tabs");
    EXPECT_EQ(listed<ExceptionPage>("", "Type=7 CustomType=Felt", 2), "Felt");
    EXPECT_EQ(listed<ExceptionPage>("", "Type=33", 5), "") << "no such choice in this printer";
}

TEST_F(SpecialPagesSummary, DialogsAreToldTheStock) {
    Insert insert(Dictionary("Quantity=3"));
    const auto described = [&] {
        return TakeText(CreateInsertAttributesDescription(bundle, insert));
    };
    insert.stock() = Stock(nullptr);
    EXPECT_EQ(described(), "Quantity 3");
    insert.stock() = Stock(Dictionary("Color=2 Type=1"));
    EXPECT_EQ(described(), "Quantity 3;  Color: Blue, Type: Plain");
    ExceptionPage exception(Dictionary("SidesImaged=3"));
    exception.stock() = insert.stock();
    EXPECT_EQ(TakeText(CreateExceptionAttributesDescription(bundle, exception)),
              "Two-sided, short edge;  Color: Blue, Type: Plain");
}

}  // namespace
}  // namespace kalmo::test
