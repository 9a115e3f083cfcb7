// Recipients with too much to dial, and the alert that shows them.
#include "fax/length_alert.h"

#include "fax/fax_dialog_test.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kList = 200, kEdit = 201, kRemove = 202, kRemoveAll = 203, kPrefixBox = 301,
                 kPrefix = 302, kCreditCardBox = 303, kCreditCard = 304, kFaxNumber = 211;

struct LengthAlerts : FaxDialogTest {
    FaxRecipient* appendNumber(int length) {
        return append("FirstName=Ann FaxNumber=\"" + std::string(length, '1') + "\"");
    }
    bool validate(const ModalDriver::Answer& answer) {
        driver.expect(answer);
        return ValidateMaxCharacters(&model, &prefix, &creditCard);
    }
    static void Select(QWidget& window, int row) {
        auto& view = Control<QTreeView>(window, kList);
        view.setCurrentIndex(view.model()->index(row, 0));
    }

    DialingPart prefix{.isOn = true, .length = 4, .text = Text4()}, creditCard;

    static Owned<CFMutableStringRef> Text4() {
        return Owned<CFMutableStringRef>::Adopt(
            CFStringCreateMutableCopy(kCFAllocatorDefault, 0, CFSTR("9999")));
    }
};

TEST_F(LengthAlerts, FiftyAreAllowedAndFiftyOneAreNot) {
    appendNumber(30);
    FaxRecipient* const tooLong = appendNumber(31);
    append("FaxNumber=+(" + std::string(30, '1') + ")-");
    append("FirstName=Bea");
    EXPECT_EQ(FindMaxCharacters(list, 4, 16), std::vector{tooLong});
    EXPECT_TRUE(ValidateMaxCharacters(&model, &prefix, &creditCard)) << "without an alert";
    model.bundle = nullptr;
    creditCard.length = 16;
    EXPECT_FALSE(ValidateMaxCharacters(&model, &prefix, &creditCard)) << "none could be shown";
    EXPECT_EQ(CFStringToUTF8(prefix.text), "9999");
}

TEST_F(LengthAlerts, KeepToTheLengthsThatWereMeasured) {
    appendNumber(47);
    EXPECT_FALSE(validate([](QWidget& window) {
        EXPECT_EQ(Text(window, kPrefix), "9999");
        EXPECT_FALSE(Enabled(window, kCreditCard));
        Press(window, kPrefixBox);
        EXPECT_FALSE(Enabled(window, kPrefix));
        Control(window, kList).setFocus();
        Press(window, kCreditCardBox);
        EXPECT_FALSE(HasFocus(window, kCreditCard)) << "it would go to the prefix";
        Type(window, kCreditCard, "12ab345678901234567");
        Press(window, kOK);
    }));
    EXPECT_FALSE(prefix.isOn);
    EXPECT_EQ(CFStringToUTF8(prefix.text), "") << "left off";
    EXPECT_TRUE(creditCard.isOn);
    EXPECT_EQ(CFStringToUTF8(creditCard.text), "1234567890123456") << "made";
    EXPECT_EQ(creditCard.length, 0);

    validate([](QWidget& window) {
        Press(window, kCreditCardBox);
        Press(window, kPrefixBox);
        EXPECT_TRUE(HasFocus(window, kPrefix));
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    EXPECT_EQ(CFStringToUTF8(creditCard.text), "") << "however it is closed";
}

TEST_F(LengthAlerts, EditedAndRemovedRecipientsLeaveTheList) {
    FaxRecipient* const first = appendNumber(51);
    for (int i = 0; i < 3; ++i) appendNumber(51 + i);
    appendNumber(10);
    const auto enabled = [](QWidget& window) {
        return std::vector{Enabled(window, kEdit), Enabled(window, kRemove),
                           Enabled(window, kRemoveAll)};
    };
    answers = {false, true, true};
    EXPECT_TRUE(validate([&](QWidget& window) {
        EXPECT_EQ(enabled(window), (std::vector{false, false, true}));
        Select(window, 0);
        EXPECT_EQ(enabled(window), (std::vector{true, true, true}));
        driver.expect([](QWidget& dialog) {
            Type(dialog, kFaxNumber, "5");
            Press(dialog, kOK);
        });
        Press(window, kEdit);
        EXPECT_EQ(CFStringToUTF8(first->faxNumber()), "5");
        EXPECT_EQ(Control<QTreeView>(window, kList).model()->rowCount(), 3);
        Select(window, 0);
        Press(window, kRemove);
        EXPECT_EQ(list.count(), 5) << "not agreed to";
        Press(window, kRemove);
        EXPECT_EQ(list.count(), 4);
        Press(window, kRemoveAll);
        EXPECT_EQ(enabled(window), (std::vector{false, false, false}));
        Press(window, kOK);
    }));
    EXPECT_EQ(list.count(), 2) << "those that are short enough";
}

}  // namespace
}  // namespace kalmo::test
