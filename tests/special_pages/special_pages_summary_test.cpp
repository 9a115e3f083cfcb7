// Special pages in words, for the list.
#include "special_pages/special_pages_summary.h"

#include "paper_output/stock/papers.h"
#include "support/dictionaries.h"

namespace kalmo::test {
namespace {

struct SpecialPagesSummary : PaperTest {
    template <typename Page>
    [[nodiscard]] std::string listed(const char* page, const char* stock) {
        Page made(Dictionary(page));
        made.stock() = Stock(Dictionary(stock));
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
    EXPECT_EQ(listed<ExceptionPage>("SidesImaged=1", "Color=10 CustomColor=Mauve"),
              "One-sided; Mauve");
    EXPECT_EQ(listed<ExceptionPage>("", "Type=6 Modulus=3 CustomType=T"), "T (3)");
    EXPECT_EQ(listed<ExceptionPage>("", "Type=4 Modulus=5"), "Precut tab stock (5)");
}

}  // namespace
}  // namespace kalmo::test
