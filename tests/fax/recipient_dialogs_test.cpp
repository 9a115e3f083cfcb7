// The dialogs for one recipient and for the preferences, through their controls.
#include "fax/recipient_dialogs.h"

#include "fax/fax_dialog_test.h"
#include "fax/fax_preferences.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kName = 201, kFaxNumber = 211, kOrganization = 221, kMailbox = 251,
                 kPromptDuplicate = 201, kPromptRemove = 202;

struct RecipientDialogs : FaxDialogTest {
    bool edit(FaxRecipient* recipient, const ModalDriver::Answer& answer) {
        driver.expect(answer);
        return EditRecipient(bundle, recipient);
    }
};

void Confirm(QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); }

TEST_F(RecipientDialogs, ANewRecipientNeedsANameAndANumber) {
    driver.expect([this](QWidget& window) {
        Type(window, kMailbox, "12a345");
        Confirm(window);
        EXPECT_EQ(lastNotice(), "Enter the recipient’s name.");
        EXPECT_TRUE(HasFocus(window, kName));
        Type(window, kName, "Ann_Lee");
        Confirm(window);
        EXPECT_EQ(lastNotice(), "Enter the recipient’s fax number.");
        EXPECT_TRUE(HasFocus(window, kFaxNumber));
        Type(window, kFaxNumber, "+1 (S) s2");
        EXPECT_EQ(list.count(), 0);
        Confirm(window);
    });
    EXPECT_TRUE(RunModalAddRecipientDialog(&model));
    ASSERT_EQ(list.count(), 1);
    EXPECT_TRUE(CFEqual(Owned<CFTypeRef>::Adopt(list.recipientAtIndex(0)->toTicket()),
                        Dictionary("FirstName=Ann_Lee FaxNumber=1S2 Mailbox=\"1234\"")));
    EXPECT_EQ(list.recipientAtIndex(0)->retain(), 2) << "held by the list alone";
    list.recipientAtIndex(0)->release();
}

TEST_F(RecipientDialogs, WhoRefusesADuplicateGoesOnTyping) {
    append("FirstName=Ann FaxNumber=\"12\"");
    driver.expect([this](QWidget& window) {
        Type(window, kName, "Ann");
        Type(window, kFaxNumber, "12");
        Confirm(window);
        EXPECT_TRUE(Contains(lastNotice(), "Ann (fax number 12)"));
        EXPECT_EQ(list.count(), 1);
        Type(window, kFaxNumber, std::string(51, '7').c_str());
        Confirm(window);
    });
    EXPECT_TRUE(RunModalAddRecipientDialog(&model));
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(CFStringGetLength(list.recipientAtIndex(1)->faxNumber()), 50);
}

TEST_F(RecipientDialogs, WhatIsOnlyLookedAtStays) {
    const std::string number = "+1-(555)-" + std::string(60, '4');
    for (const std::string& fields :
         {"FirstName=Ann LastName=Lee UID=u FaxNumberLabel=home FaxNumber=" + number,
          std::string("LastName=Lee Organization=O FaxNumber=x Mailbox=\"12345\""),
          std::string("FirstName=Ann FaxNumber=x PhoneNumber=p EmailAddress=a@b")}) {
        FaxRecipient* const recipient = append(fields);
        EXPECT_TRUE(edit(recipient, Confirm)) << fields;
        EXPECT_TRUE(CFEqual(Owned<CFTypeRef>::Adopt(recipient->toTicket()), Dictionary(fields)))
            << fields;
    }
}

TEST_F(RecipientDialogs, AnEmptiedFieldIsClearedUnlessItIsRequired) {
    FaxRecipient* const ann = append("FirstName=Ann LastName=Lee FaxNumber=x Organization=O");
    EXPECT_FALSE(edit(ann, [](QWidget& window) {
        Type(window, kOrganization, "");
        Type(window, kName, "");
        Press(window, kOK);
        Press(window, kCancel);
    }));
    EXPECT_EQ(notices.size(), 1u);
    EXPECT_EQ(CFStringToUTF8(ann->organization()), "O");
    EXPECT_TRUE(edit(ann, [](QWidget& window) {
        Type(window, kOrganization, "");
        Type(window, kName, "Bea");
        Press(window, kOK);
    }));
    EXPECT_TRUE(CFEqual(Owned<CFTypeRef>::Adopt(ann->toTicket()),
                        Dictionary("FirstName=Bea LastName=Lee FaxNumber=x")));
}

TEST_F(RecipientDialogs, PreferencesAreTakenOnOKAlone) {
    SInt32 duplicate = 1, remove = 1;
    const auto run = [&](SInt32 end) {
        driver.expect([end](QWidget& window) {
            EXPECT_TRUE(Control<QCheckBox>(window, kPromptDuplicate).isChecked());
            Press(window, kPromptDuplicate);
            Press(window, end == kCancel ? kPromptRemove : kOK);
            if (end == kCancel) Press(window, end);
        });
        return RunModalFaxPreferencesDialog(bundle, &duplicate, &remove);
    };
    EXPECT_EQ(run(kCancel), kModalCancel);
    EXPECT_EQ(std::pair(duplicate, remove), std::pair(1, 1));
    EXPECT_EQ(run(kOK), kModalOK);
    EXPECT_EQ(std::pair(duplicate, remove), std::pair(0, 1));
    EXPECT_LT(RunModalFaxPreferencesDialog(nullptr, &duplicate, &remove), 0);
    EXPECT_EQ(std::pair(duplicate, remove), std::pair(0, 1));
}

}  // namespace
}  // namespace kalmo::test
