// What the cover says.
#include "fax/cover_sheet.h"

#include "fax/fax_dialog_test.h"

namespace kalmo::test {
namespace {

TEST(CoverSheet, SaysWhatTheOptionsAskFor) {
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    FaxRecipientList list;
    for (const char* fields : {"FirstName=Ann LastName=Lee", "FaxNumber=\"5\"", "LastName=Bo"})
        Append(list, fields);
    const std::string letter = "Cover sheet on Letter paper", a4 = "Cover sheet on A4 paper",
                      all = "\nTo: Ann Lee, , Bo", number = "ShowSender=true SenderFaxNumber=\"1\"",
                      details =
                          " SenderPhoneNumber=\"2\" SenderName=A SenderOrganization=B "
                          "SenderEmailAddress=C CustomRecipientText=Z WatermarkName=W ";
    const struct {
        std::string options, notes;
        SInt32 image;
        std::string said;
    } kRows[] = {
        {details, "", 1, letter + all},
        {number + " SenderName=\"\" Size=1", "x", 2,
         letter + "\nFrom: Fax : 1 " + all + "\nNotes: x"},
        {number + details + "ShowRecipients=2 Size=4", "", 2,
         a4 + "\nFrom: A B C Phone : 2 Fax : 1 " + all + "\nWith the image “W”"},
        {"ShowSender=false ShowRecipients=1 Size=2" + details, "", 1, a4},
        {"ShowSender=true ShowRecipients=3 CustomRecipientText=Z Size=0", "", 2, a4 + "\nTo: Z"},
        {"ShowSender=5 ShowRecipients=3 CustomRecipientText=5 Size=x WatermarkName=5",
         std::string(300, 'x'), 2, letter + "\nNotes: " + std::string(200, 'x') + "…"}};
    for (const auto& row : kRows) {
        const CoverSheet cover = AssembleCoverSheet(
            {bundle, Dictionary(row.options), &list, String(row.notes), row.image});
        EXPECT_EQ(CFStringToUTF8(DescribeCoverSheet(bundle, cover, false)), row.said);
        EXPECT_EQ(cover.page.width, Contains(row.said, letter) ? 612 : 595);
        EXPECT_EQ(cover.page.height, Contains(row.said, letter) ? 792 : 842);
        EXPECT_EQ(cover.recipientsLabel != nullptr, !Contains(row.options, "ShowRecipients=1"));
    }
}

}  // namespace
}  // namespace kalmo::test
