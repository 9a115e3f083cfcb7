// The fax setup: options and recipients in place, put back on Cancel.
#include "fax/lan_fax_setup.h"

#include "fax/fax_dialog_test.h"
#include "fax/fax_option_controls.h"
#include "fax/fax_options.h"
#include "settings/ticket.h"
#include "support/worker_wait.h"
#include "system/clock.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kTabs = 100, kList = 200, kSaveGroup = 204, kRemove = 205;

struct LANFaxSetupTest : FaxDialogTest {
    ~LANFaxSetupTest() override {
        SetNowForTests({});
        WaitForWorkers();
    }

    std::string recipients() const {
        std::string names;
        for (CFIndex i = 0; i < list.count(); ++i)
            names += CFStringToUTF8(list.recipientAtIndex(i)->firstName()) + " ";
        return names;
    }
    /// The dialog, driven by `user` up to OK.
    void run(const ModalDriver::Answer& user) {
        driver.expect([&](QWidget& window) {
            user(window);
            Press(window, kOK);
        });
        EXPECT_EQ(RunModalLANFaxSetup(bundle, options, &list), kModalOK);
    }
    static void Show(QWidget& window, int tab) {
        auto& tabs = Control<QTabWidget>(window, kTabs);
        QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(tab).center());
    }
    static void SelectRow(QWidget& window, int row, Qt::KeyboardModifier modifier) {
        auto& view = Control<QAbstractItemView>(window, kList);
        const QRect cell = view.visualRect(view.model()->index(row, 0));
        QTest::mouseClick(view.viewport(), Qt::LeftButton, modifier, cell.center());
    }
    static bool Is(QWidget& window, SInt32 id) {
        return Control<QAbstractButton>(window, id).isChecked();
    }
    [[nodiscard]] CFIndex number(CFStringRef key) const {
        CFIndex value = -1;
        GetCFIndexFromCFDictionary(options, key, &value);
        return value;
    }

    Owned<CFMutableDictionaryRef> options = Dictionary("");
};

TEST_F(LANFaxSetupTest, WithoutOptionsOfTheRightKindShowsTheDefaultsAndStoresThem) {
    for (const auto& wrong :
         {std::vector<const char*>{},
          {"SendSpeed", "Resolution", "SendTime", "DialingPrefix", "CoverSheet"}}) {
        for (const char* key : wrong)
            CFDictionarySetValue(options, CFStringMakeConstant(key), Dictionary(""));
        run([](QWidget& window) {
            EXPECT_EQ(Control<QComboBox>(window, kSendSpeedID).currentIndex(), 2);
            EXPECT_EQ(Control<QComboBox>(window, kResolutionID).currentIndex(), 1);
            EXPECT_TRUE(Is(window, kSendNowID));
            EXPECT_FALSE(Enabled(window, kSendTimeID) || Enabled(window, kPrefixID) ||
                         Enabled(window, kNotesID) || Enabled(window, kSaveGroup));
        });
        EXPECT_TRUE(CFEqual(options, Dictionary("ConfirmationSheet=true SendSpeed=3 Resolution=2 "
                                                "CoverSheet=false PromptDuplicate=true "
                                                "PromptRemove=true FAXWaterMarkSelectedIndex=1")));
    }
}

TEST_F(LANFaxSetupTest, SendTimeIsTheControlsMomentOrADayLater) {
    constexpr SInt64 kDay = 86'400, kToday = 44'000 * kDay, kNine = kToday + 9 * 3600;
    EXPECT_EQ(FaxSendTime(kToday + 8 * 3600, kNine), kToday + kDay + 8 * 3600);
    EXPECT_EQ(FaxSendTime(kToday + 10 * 3600, kNine), kToday + 10 * 3600);
    EXPECT_EQ(FaxSendTime(kNine - 2 * kDay, kNine), kNine - kDay) << "a day and no more";
    SetNowForTests(kNine + 59);
    run([](QWidget& window) {
        Show(window, 2);
        Press(window, kSendAtID);
        EXPECT_TRUE(Enabled(window, kSendTimeID));
    });
    EXPECT_EQ(number(kFaxSendTimeProperty), kNine + kDay) << "from the present minute on";
    run([](QWidget& window) {
        EXPECT_TRUE(Is(window, kSendAtID));
        Show(window, 2);
        Press(window, kSendNowID);
    });
    EXPECT_FALSE(CFDictionaryContainsKey(options, kFaxSendTimeProperty));
}

TEST_F(LANFaxSetupTest, OffMeansNoKeyWhateverTheFieldHolds) {
    options = Dictionary(
        "DialingPrefix=\"0\" CreditCard=\"12\" CoverSheet=true CoverSheetNotes=n "
        "LocalizedNotesLabel=x");
    run([](QWidget& window) {
        EXPECT_EQ(Text(window, kCreditCardID), "12");
        Show(window, 2);
        Press(window, kPrefixBoxID);
        Type(window, kCreditCardID, "4x5");
        Control<QPlainTextEdit>(window, kNotesID).clear();
    });
    EXPECT_FALSE(CFDictionaryContainsKey(options, kFaxDialingPrefixProperty));
    EXPECT_EQ(CFStringToUTF8(StringInDictionary(options, kFaxCreditCardProperty)), "45");
    EXPECT_FALSE(CFDictionaryContainsKey(options, kFaxCoverLocalizedNotesLabel));
    EXPECT_EQ(CFStringToUTF8(StringInDictionary(options, kFaxCoverSheetNotesProperty)), "n");
}

TEST_F(LANFaxSetupTest, CancelPutsEverythingBack) {
    for (const char* name : {"FirstName=Ann", "FirstName=Bob", "FirstName=Cem"}) append(name);
    options = Dictionary("SendSpeed=1 PromptRemove=false Other=x");
    const auto before = Owned<CFTypeRef>::Adopt(CFDictionaryCreateMutableCopy(nullptr, 0, options));
    driver.expect([](QWidget& window) {
        SelectRow(window, 2, Qt::NoModifier);
        SelectRow(window, 0, Qt::ControlModifier);
        Press(window, kRemove);
        EXPECT_EQ(Control<QAbstractItemView>(window, kList).model()->rowCount(), 1);
        Press(window, kCancel);
    });
    EXPECT_EQ(RunModalLANFaxSetup(bundle, options, &list), kModalCancel);
    EXPECT_EQ(recipients(), "Ann Bob Cem ");
    EXPECT_TRUE(CFEqual(options, before));
    EXPECT_EQ(questions.size(), 0u) << "removing asks only when it is to";
}

TEST_F(LANFaxSetupTest, AsksAboutDuplicatesAndRemovals) {
    FaxRecipient* const ann = append("FirstName=Ann FaxNumber=\"7\"");
    model.isLengthCheckArmed = false;
    EXPECT_EQ(AddRecipient(&model, ann), 0);
    ASSERT_EQ(questions.size(), 1u);
    EXPECT_TRUE(Contains(questions[0], "Ann")) << questions[0];
    EXPECT_FALSE(RemoveRecipients({ann}, &model) || model.isLengthCheckArmed);
    EXPECT_FALSE(RemoveRecipients({append("FirstName=" + std::string(9999, 'n'))}, &model));
    EXPECT_LT(questions.back().size(), 400u);
    list.removeAtIndex(1);
    agrees = true;
    EXPECT_EQ(AddRecipient(&model, ann), 1);
    EXPECT_TRUE(model.isLengthCheckArmed);
    EXPECT_TRUE(RemoveRecipients({ann}, &model));
    EXPECT_EQ(list.count(), 0);
}

TEST_F(LANFaxSetupTest, ALongDialingStringKeepsItOpenAndAddingStartsFromTheGround) {
    append("FirstName=Ann FaxNumber=\"" + std::string(48, '1') + "\"");
    driver.expect([&](QWidget& window) {
        Show(window, 2);
        driver.expect([](QWidget& alert) { Press(alert, kOK); });
        Press(window, kPrefixBoxID);
        Type(window, kPrefixID, "0,9");
        Press(window, kOK);
        EXPECT_FALSE(CFDictionaryContainsKey(options, kFaxDialingPrefixProperty)) << "not accepted";
        Type(window, kPrefixID, "0");
        driver.expect([](QWidget& dialog) { Press(dialog, kCancel); });
        Show(window, 0);
        auto& view = Control<QAbstractItemView>(window, kList);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                           view.viewport()->rect().bottomLeft() + QPoint(4, -4));
        Press(window, kOK);
    });
    EXPECT_EQ(RunModalLANFaxSetup(bundle, options, &list), kModalOK);
    EXPECT_EQ(CFStringToUTF8(StringInDictionary(options, kFaxDialingPrefixProperty)), "0");
}

}  // namespace
}  // namespace kalmo::test
