// The dialogs for one recipient and for the preferences, through their controls.
#include "fax/recipient_dialogs.h"

#include "fax/fax_dialog_test.h"
#include "fax/fax_preferences.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kName = 201, kFaxNumber = 211, kOrganization = 221, kMailbox = 251,
                 kPromptDuplicate = 201;

struct RecipientDialogs : FaxDialogTest {
    void edit(const std::string& before, const std::string& after,
              const ModalDriver::Answer& answer) {
        FaxRecipient* const recipient = append(before);
        driver.expect(answer);
        EditRecipient(bundle, recipient);
        EXPECT_TRUE(CFEqual(Owned<CFTypeRef>::Adopt(recipient->toTicket()), Dictionary(after)))
            << before;
    }
};

void Confirm(QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); }

TEST_F(RecipientDialogs, ANewRecipientNeedsANameAndANumberAndIsNoDuplicate) {
    append("FirstName=Ann FaxNumber=1S2");
    driver.expect([](QWidget& window) {
        Type(window, kMailbox, "12a345");
        Confirm(window);
        EXPECT_TRUE(HasFocus(window, kName));
        Type(window, kName, "Ann");
        Confirm(window);
        EXPECT_TRUE(HasFocus(window, kFaxNumber));
        Type(window, kFaxNumber, "+1 (S) s2");
        Confirm(window);  // a duplicate, which is not wanted
        Type(window, kFaxNumber, std::string(51, '7').c_str());
        Confirm(window);
    });
    EXPECT_TRUE(RunModalAddRecipientDialog(&model));
    ASSERT_EQ(list.count(), 2);
    EXPECT_TRUE(CFEqual(
        Owned<CFTypeRef>::Adopt(list.recipientAtIndex(1)->toTicket()),
        Dictionary("FirstName=Ann Mailbox=\"1234\" FaxNumber=\"" + std::string(50, '7') + '"')));
}

TEST_F(RecipientDialogs, WhatIsNotChangedStays) {
    for (const std::string& fields :
         {"FirstName=Ann LastName=Lee UID=u FaxNumber=+1-(555)-" + std::string(60, '4'),
          std::string("LastName=Lee Organization=O FaxNumber=x Mailbox=\"12345\"")})
        edit(fields, fields, Confirm);
    edit("FirstName=Ann LastName=Lee FaxNumber=x Organization=O",
         "FirstName=Bea LastName=Lee FaxNumber=x", [](QWidget& window) {
             Type(window, kOrganization, "");
             Type(window, kName, "");
             Confirm(window);  // the last name is not enough
             Type(window, kName, "Bea");
             Confirm(window);
         });
}

TEST_F(RecipientDialogs, PreferencesAreTakenOnOKAlone) {
    SInt32 duplicate = 1, remove = 1;
    for (const SInt32 end : {kCancel, kOK}) {
        driver.expect([end](QWidget& window) {
            Press(window, kPromptDuplicate);
            Press(window, end);
        });
        RunModalFaxPreferencesDialog(bundle, &duplicate, &remove);
        EXPECT_EQ(std::pair(duplicate, remove), std::pair(end == kOK ? 0 : 1, 1));
    }
}

}  // namespace
}  // namespace kalmo::test
