// Recipients, their list, and who holds them.
#include "fax/fax_dialog_test.h"

namespace kalmo::test {
namespace {

TEST(FaxRecipient, TicketHasAKeyForEachGivenField) {
    FaxRecipient recipient(Dictionary("FirstName=Ann LastName=5 UID=u FaxNumber=\"7\""));
    EXPECT_TRUE(CFEqual(Owned<CFMutableDictionaryRef>::Adopt(recipient.toTicket()),
                        Dictionary("FirstName=Ann UID=u FaxNumber=\"7\"")));
    recipient.fromTicket(Dictionary("LastName=Lee"));
    EXPECT_EQ(recipient.uid(), nullptr) << "a missing key clears";
    EXPECT_EQ(TakeText(DisplayNameFromRecipient(&recipient)), "Lee");
    recipient.setFirstName(CFSTR("Ann"));
    EXPECT_EQ(TakeText(DisplayNameFromRecipient(&recipient)), "Ann Lee");
}

TEST(FaxRecipientList, HoldsOneReferenceForEachEntry) {
    FaxRecipientList list;
    FaxRecipient* twice = Append(list, "FirstName=Ann");
    list.append(twice);
    EXPECT_EQ(twice->retain(), 3);
    list.remove(twice);
    EXPECT_EQ(list.count(), 1) << "the second of two neighbours is passed over";
    EXPECT_EQ(twice->release(), 1);
    const FaxRecipientList copy(list);
    list.removeAll();
    EXPECT_EQ(copy.recipientAtIndex(0)->retain(), 2) << "a copy counts its own holders";
    copy.recipientAtIndex(0)->release();
}

TEST(FaxRecipientList, DuplicatesAreExact) {
    FaxRecipientList list;
    Append(list, "FirstName=Ann FaxNumber=5-1 UID=u");
    Append(list, "FaxNumber=7-7");
    for (const auto& [fields, contained] : {std::pair{"FirstName=Ann FaxNumber=5-1", true},
                                            {"FaxNumber=7-7 UID=u", true},
                                            {"FirstName=ann FaxNumber=5-1", false},
                                            {"FirstName=Ann FaxNumber=51-", false},
                                            {"FirstName=\"\" FaxNumber=7-7", false}}) {
        const FaxRecipient recipient(Dictionary(fields));
        EXPECT_EQ(list.containsRecipient(&recipient), contained) << fields;
    }
}

TEST(FaxRecipientList, ForeignElementsOfTheTicketArePassedOver) {
    const auto bea = Dictionary("FirstName=Bea");
    const FaxRecipientList list(Array({CFSTR("Ann"), bea.get(), kCFBooleanTrue}));
    ASSERT_EQ(list.count(), 1);
    EXPECT_TRUE(CFEqual(list.recipientAtIndex(0)->firstName(), CFSTR("Bea")));
}

}  // namespace
}  // namespace kalmo::test
