// A printer with a few papers, and the product's texts.
#pragma once

#include "paper_output/stock/stock.h"
#include "settings/ppd_file.h"

namespace kalmo::test {

inline const std::string kPapers =
    PPDOption("PageSize", "Letter", {"Letter/US Letter", "A4/A4"}) +
    "*CustomPageSize True: \"\"\n" +
    PPDOption("MediaColor", "White", {"White/White", "Blue/Blue", "Unspecified/Any"}) +
    PPDOption("MediaType", "Standard",
              {"SystemDefault/Default", "Standard/Plain", "Unspecified/Any", "TabStock/Tabs",
               "Transparency/Film"});

struct PaperTest : testing::Test {
    const Owned<CFBundleRef> bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    const PrinterWithPPD printer{kPapers};
};

}  // namespace kalmo::test
