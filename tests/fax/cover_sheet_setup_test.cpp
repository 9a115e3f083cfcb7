// The cover sheet setup, through its controls.
#include "fax/cover_sheet_setup.h"

#include "contacts/address_book.h"
#include "fax/fax_dialog_test.h"
#include "fax/fax_options.h"
#include "toolbox/menus.h"
#include "watermark/watermark_store.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kPreview = 100, kPaper = 101, kRecipients = 201, kCustomText = 202, kSender = 301,
                 kName = 311, kFaxNumber = 313, kTelephone = 317, kImage = 401, kEditorText = 302;

struct CoverSheetSetup : FaxDialogTest {
    CoverSheetSetup() { setenv("XDG_CONFIG_HOME", home.c_str(), 1); }
    void run(SInt32 button, const ModalDriver::Answer& user) {
        driver.expect([&](QWidget& window) {
            user(window);
            Press(window, button);
        });
        RunModalCoverSheetSetupDialog(bundle, &list, options, nullptr, &imageIndex);
    }
    bool optionsAre(const std::string& entries) { return CFEqual(options, Dictionary(entries)); }

    /// What the cover says, as a screen reader is told.
    static std::string Cover(QWidget& window) {
        return Control(window, kPreview).accessibleDescription().toStdString();
    }
    static MenuRef Menu(QWidget& window) {
        return GetControlPopupMenu(ControlFromWidget(&Control(window, kImage)));
    }
    static void Pick(QWidget& window, MenuRef menu, const char* text) {
        SimulateMenuChoice(ControlFromWidget(&Control(window, kImage)), menu, ItemOf(menu, text));
    }
    /// New or Edit, and the editor ends with this text.
    void edit(QWidget& window, const char* command, const char* text) {
        driver.expect([text](QWidget& editor) {
            Type(editor, kEditorText, text);
            Press(editor, kOK);
        });
        Pick(window, Menu(window), command);
    }
    static std::string NamesIn(CFStringRef store) {
        Owned<CFMutableArrayRef> names;
        loadWatermarkList(store, nullptr, names.adopt());
        return TakeText(CFStringCreateByCombiningStrings(nullptr, names, CFSTR(",")));
    }

    std::filesystem::path home = MakeFolder("home");
    Owned<CFMutableDictionaryRef> options = Dictionary("");
    SInt32 imageIndex = kNoCoverImageItem;
};

TEST_F(CoverSheetSetup, A4IsStoredAsTwoAndShownAgain) {
    run(kOK, [](QWidget& window) {
        EXPECT_EQ(Control<QLabel>(window, kPaper).text(), "Paper: Letter");
        const MenuRef menu = Menu(window);
        const UInt16 sizes = ItemOf(menu, "Cover sheet paper size");
        Pick(window, GetMenuItemHierarchicalMenu(menu, sizes), "A4");
    });
    EXPECT_EQ(NumberOr(options, CFSTR("Size"), 0), 2);
    run(kOK,
        [](QWidget& window) { EXPECT_EQ(Control<QLabel>(window, kPaper).text(), "Paper: A4"); });
}

TEST_F(CoverSheetSetup, RecipientsAreStoredCrosswise) {
    const std::string others = " ShowSender=false ShowWatermark=false Size=1",
                      all = "ShowRecipients=2 LocalizedToLabel=To:" + others,
                      hidden = "ShowRecipients=1" + others,
                      custom = "ShowRecipients=3 LocalizedToLabel=To: CustomRecipientText=";
    for (const auto& [stored, shown, kept] :
         {std::tuple{std::string("ShowSender=false"), "Show all recipients", all},
          {hidden + " LocalizedToLabel=To:", "Hide the recipients", hidden},
          {custom + "ll" + others, "Show a text of your own", custom + "All" + others}}) {
        options = Dictionary(stored);
        run(kOK, [&](QWidget& window) {
            EXPECT_EQ(Control<QComboBox>(window, kRecipients).currentText(), shown);
            QTest::keyClicks(&Control(window, kCustomText), "A");  // where it is enabled
        });
        EXPECT_TRUE(optionsAre(kept)) << stored;
    }
}

TEST_F(CoverSheetSetup, ASenderIsRemovedWhenHiddenAndFilledInOnlyWithoutAName) {
    setenv("XDG_DATA_HOME", home.c_str(), 1);
    contacts::Changes card{
        .persons = {{.first = "Ada",
                     .last = "King",
                     .phones = {{contacts::Label::workFax, "11"}, {contacts::Label::work, "22"}}}}};
    const auto book = contacts::OpenFolder(contacts::DefaultFolder());
    ASSERT_TRUE(book->save(card, {}) && book->setMe(card.persons[0].uid, {}));
    const std::string hidden =
        "ShowSender=false ShowRecipients=2 LocalizedToLabel=To: ShowWatermark=false Size=1";
    options = Dictionary("SenderName=Eve LocalizedFromLabel=x");
    run(kOK, [](QWidget& window) {
        Choose(window, kSender, "Show the sender");
        EXPECT_EQ(Text(window, kName) + Text(window, kTelephone), "Eve");
        Choose(window, kSender, "Hide the sender");
    });
    EXPECT_TRUE(optionsAre(hidden));
    for (const SInt32 button : {kCancel, kOK}) {
        EXPECT_TRUE(optionsAre(hidden)) << "also after Cancel";
        run(button, [](QWidget& window) {
            Choose(window, kSender, "Show the sender");
            EXPECT_EQ(Text(window, kName), "Ada King");
            EXPECT_EQ(Text(window, kTelephone), "22") << "no fax";
            Type(window, kFaxNumber, "33");
        });
    }
    EXPECT_EQ(CFStringToUTF8(StringInDictionary(options, CFSTR("SenderName"))), "Ada King");
    EXPECT_EQ(CFStringToUTF8(StringInDictionary(options, CFSTR("SenderFaxNumber"))), "33");
    run(kOK, [](QWidget& window) { Type(window, kName, ""); });
    run(kOK, [](QWidget& window) {
        Choose(window, kSender, "Hide the sender");
        Choose(window, kSender, "Show the sender");
        EXPECT_EQ(Text(window, kName), "") << "it was cleared on purpose";
    });
}

TEST_F(CoverSheetSetup, CancelKeepsANewImageAndRestoresTheOptions) {
    const char* const before = "ShowWatermark=true WatermarkName=Gone Other=1";
    options = Dictionary(before);
    run(kCancel, [this](QWidget& window) {
        edit(window, "New…", "R&D");
        EXPECT_TRUE(Contains(Cover(window), "R&D"));
    });
    EXPECT_TRUE(optionsAre(before));
    EXPECT_EQ(imageIndex, kNoCoverImageItem);
    EXPECT_EQ(NamesIn(kFaxImageStore), "R&D");
}

TEST_F(CoverSheetSetup, DeletingAnImageReplacesTheListOfPrintWatermarks) {
    saveWatermarkList(kFaxImageStore, Array({CFSTR("Logo"), CFSTR("Draft"), CFSTR("Logo")}));
    run(kOK, [this](QWidget& window) {
        Pick(window, Menu(window), "Draft");
        edit(window, "Edit…", "Final");
    });
    EXPECT_EQ(CFStringToUTF8(StringInDictionary(options, CFSTR("WatermarkName"))), "Final");
    EXPECT_EQ(imageIndex, 3);
    EXPECT_EQ(NamesIn(kFaxImageStore), "Logo,Final,Logo");
    run(kOK, [](QWidget& window) {
        Pick(window, Menu(window), "Logo");
        Pick(window, Menu(window), "Delete");  // "Yes" is not the default
    });
    EXPECT_FALSE(CFDictionaryContainsKey(options, CFSTR("WatermarkName")));
    EXPECT_EQ(NamesIn(kFaxImageStore), "Final") << "a name that stood twice goes wholly";
    EXPECT_EQ(NamesIn(kWatermarkStore), "Final");
}

TEST_F(CoverSheetSetup, ADamagedStoreIsToldOfAndLeftAlone) {
    const auto file = home / "kalmo-print/Kalmo/com.kalmo.printing.faximage.plist";
    std::filesystem::create_directories(file.parent_path());
    WriteFile(file, "torn");
    run(kOK, [this](QWidget& window) {
        edit(window, "New…", "Draft");
        EXPECT_EQ(CountMenuItems(Menu(window)), 6);
    });
    ASSERT_EQ(notices.size(), 1u);
    EXPECT_TRUE(Contains(notices[0], file)) << notices[0];
    EXPECT_EQ(ReadFile(file), "torn");
}

}  // namespace
}  // namespace kalmo::test
