// Recipients with too much to dial, and the alert that shows them.
#include "fax/length_alert.h"

#include "fax/dialing_string.h"
#include "fax/fax_dialog_test.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kList = 200, kEdit = 201, kRemove = 202, kRemoveAll = 203, kPrefixBox = 301,
                 kCreditCardBox = 303, kCreditCard = 304, kFaxNumber = 211;

struct LengthAlerts : FaxDialogTest {
    void appendNumbers(std::initializer_list<int> lengths) {
        for (const int length : lengths) append("FaxNumber=+(" + std::string(length, '1') + ")-");
    }
    bool validate(const ModalDriver::Answer& answer) {
        driver.expect(answer);
        return ValidateMaxCharacters(&model, &prefix, &creditCard);
    }
    DialingPart prefix{.isOn = true,
                       .length = 4,
                       .text = Owned<CFMutableStringRef>::Adopt(
                           CFStringCreateMutableCopy(nullptr, 0, CFSTR("9999")))},
        creditCard;
};

TEST(DialingString, KeepsWhatThePrinterDials) {
    for (const auto& [number, dialed] : {std::pair{"+1 (555) 123-4567", "15551234567"},
                                         {"0123456789*#=:!,/S$<>ABCD", "0123456789*#=:!,/S$<>ABCD"},
                                         {"sS abcdEe;.\xD9\xA1\xF0\x9D\x9F\x98", "S"}}) {
        EXPECT_EQ(TakeText(CopyDialingStringFromFaxNumber(String(number))), dialed);
    }
}

TEST_F(LengthAlerts, FiftyAreAllowedAndFiftyOneAreNot) {
    appendNumbers({30, 31, 0});
    EXPECT_EQ(FindMaxCharacters(list, 4, 16), std::vector{list.recipientAtIndex(1)});
    EXPECT_TRUE(ValidateMaxCharacters(&model, &prefix, &creditCard)) << "without an alert";
    creditCard.length = 16, model.bundle = nullptr;
    EXPECT_FALSE(ValidateMaxCharacters(&model, &prefix, &creditCard)) << "none could be shown";
}

TEST_F(LengthAlerts, EditedAndRemovedRecipientsLeaveTheList) {
    appendNumbers({51, 52, 53, 10});
    model.promptRemove = 0;
    EXPECT_TRUE(validate([&](QWidget& window) {
        const auto selectFirst = [&] {
            auto& view = Control<QTreeView>(window, kList);
            view.setCurrentIndex(view.model()->index(0, 0));
        };
        selectFirst();
        driver.expect([](QWidget& dialog) {
            Type(dialog, 201, "Ann");
            Type(dialog, kFaxNumber, "5");
            Press(dialog, kOK);
        });
        Press(window, kEdit);
        selectFirst();
        Press(window, kRemove);
        EXPECT_EQ(list.count(), 3);
        Press(window, kRemoveAll);
        Press(window, kOK);
    }));
    EXPECT_EQ(list.count(), 2) << "those that are short enough";
}

TEST_F(LengthAlerts, KeepToTheLengthsThatWereMeasured) {
    appendNumbers({47});
    EXPECT_FALSE(validate([](QWidget& window) {
        Press(window, kPrefixBox);
        Press(window, kCreditCardBox);
        EXPECT_FALSE(HasFocus(window, kCreditCard)) << "it would go to the prefix";
        Type(window, kCreditCard, "12ab345678901234567");
        QTest::keyClick(&window, Qt::Key_Escape);
    }));
    EXPECT_EQ(CFStringToUTF8(prefix.text), "") << "left off";
    EXPECT_EQ(CFStringToUTF8(creditCard.text), "1234567890123456") << "made";
    EXPECT_EQ(std::pair(prefix.length, creditCard.length), std::pair(CFIndex{4}, CFIndex{0}));
}

}  // namespace
}  // namespace kalmo::test
