// The cover sheet setup, through its controls.
#include "fax/cover_sheet_setup.h"

#include "contacts/address_book.h"
#include "fax/fax_options.h"
#include "paper_output/dialog_test.h"
#include "support/dictionaries.h"
#include "support/private_home.h"
#include "toolbox/menus.h"
#include "watermark/watermark_store.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kPreview = 100, kPaper = 101, kRecipients = 201, kCustomText = 202, kSender = 301,
                 kName = 311, kFaxNumber = 313, kOrganization = 315, kTelephone = 317, kEmail = 319,
                 kImage = 401;

struct CoverSheetSetup : DialogTest {
    CoverSheetSetup() {
        Presence presence = CurrentPresence();
        presence.alert = [](const AlertTexts&) { return false; };  // "Yes" is not the default
        InstallPresence(presence);
    }
    SInt32 run(const ModalDriver::Answer& answer) {
        driver.expect(answer);
        return RunModalCoverSheetSetupDialog(bundle, &list, options, CFSTR("Notes"), &imageIndex);
    }
    std::string option(CFStringRef key) { return CFStringToUTF8(StringInDictionary(options, key)); }
    SInt32 number(CFStringRef key) { return NumberOr(options, key, -1); }

    /// What it says, as it is told to a screen reader.
    static QString Preview(QWidget& window) {
        return Control(window, kPreview).accessibleDescription();
    }
    static MenuRef Menu(QWidget& window) {
        return GetControlPopupMenu(ControlFromWidget(&Control(window, kImage)));
    }
    static UInt16 ItemOf(MenuRef menu, const char* text) {
        for (UInt16 item = CountMenuItems(menu); item > 0; --item)
            if (TakeText(CopyMenuItemTextAsCFString(menu, item)) == text) return item;
        return 0;
    }
    static MenuRef Sizes(QWidget& window) {
        const MenuRef menu = Menu(window);
        return GetMenuItemHierarchicalMenu(menu, ItemOf(menu, "Cover sheet paper size"));
    }
    static void Pick(QWidget& window, MenuRef menu, const char* text) {
        ASSERT_NE(ItemOf(menu, text), 0) << text;
        SimulateMenuChoice(ControlFromWidget(&Control(window, kImage)), menu, ItemOf(menu, text));
    }
    /// New or Edit, and the editor ends with this text.
    void edit(QWidget& window, const char* command, const char* text) {
        driver.expect([text](QWidget& editor) {
            Type(editor, 302, text);
            Press(editor, kOK);
        });
        Pick(window, Menu(window), command);
    }
    static std::string NamesIn(CFStringRef store) {
        Owned<CFMutableArrayRef> names;
        loadWatermarkList(store, nullptr, names.adopt());
        return names ? TakeText(CFStringCreateByCombiningStrings(nullptr, names, CFSTR(",")))
                     : "no list";
    }
    static void Store(const char* text) {
        WatermarkHolder image;
        setDefaultValues(*image, 0);
        SetWatermarkText(image->textString, String(text));
        image->textMode = 1;
        saveWatermarkData(kFaxImageStore, *image);
    }
    static void StoreList(std::initializer_list<const char*> names) {
        const auto stored = Owned<CFMutableArrayRef>::Adopt(
            CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks));
        for (const char* name : names) CFArrayAppendValue(stored, String(name)), Store(name);
        saveWatermarkList(kFaxImageStore, stored);
    }

    std::filesystem::path home = MakeFolder("home");
    int isHome = setenv("XDG_CONFIG_HOME", home.c_str(), 1);
    Owned<CFMutableDictionaryRef> options = Dictionary("");
    FaxRecipientList list;
    SInt32 imageIndex = kNoCoverImageItem;
};

TEST_F(CoverSheetSetup, A4StoresTwoAndEverySizeButOneIsShownAsA4) {
    run([](QWidget& window) {
        EXPECT_EQ(Control<QLabel>(window, kPaper).text(), "Paper: Letter");
        Pick(window, Sizes(window), "A4");
        EXPECT_EQ(Control<QLabel>(window, kPaper).text(), "Paper: A4");
        Press(window, kOK);
    });
    EXPECT_EQ(number(CFSTR("Size")), 2);
    for (const char* stored : {"Size=2", "Size=4"}) {
        options = Dictionary(stored);
        run([](QWidget& window) {
            const MenuRef sizes = Sizes(window);
            EXPECT_TRUE(IsMenuItemChecked(sizes, 2) && !IsMenuItemChecked(sizes, 1));
            Press(window, kOK);
        });
        EXPECT_TRUE(CFEqual(CFDictionaryGetValue(options, CFSTR("Size")),
                            CFDictionaryGetValue(Dictionary(stored), CFSTR("Size"))))
            << stored;
    }
}

TEST_F(CoverSheetSetup, RecipientsAreStoredCrosswise) {
    const struct {
        const char *stored, *shown;
        SInt32 kept;
        const char* label;
    } kRows[] = {{"", "Show all recipients", 2, "To:"},
                 {"ShowRecipients=1", "Hide the recipients", 1, ""},
                 {"ShowRecipients=2", "Show all recipients", 2, "To:"},
                 {"ShowRecipients=3 CustomRecipientText=All", "Show a text of your own", 3, "To:"}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.stored);
        options = Dictionary(row.stored);
        run([&row](QWidget& window) {
            EXPECT_EQ(Control<QComboBox>(window, kRecipients).currentText(), row.shown);
            auto& text = Control<QPlainTextEdit>(window, kCustomText);
            EXPECT_EQ(text.isEnabled(), row.kept == 3);
            if (row.kept == 3) QTest::keyClicks(&text, "Dear ");
            EXPECT_EQ(Preview(window).contains("Dear All"), row.kept == 3);
            Press(window, kOK);
        });
        EXPECT_EQ(number(CFSTR("ShowRecipients")), row.kept);
        EXPECT_EQ(option(CFSTR("LocalizedToLabel")), row.label);
    }
    EXPECT_EQ(option(CFSTR("CustomRecipientText")), "Dear All");
}

TEST_F(CoverSheetSetup, TheSenderIsRemovedWhenHiddenAndFilledInOnlyWithoutAName) {
    setenv("XDG_DATA_HOME", home.c_str(), 1);
    contacts::Changes card{
        .persons = {{.first = "Ada",
                     .last = "King",
                     .organization = "Engines",
                     .phones = {{contacts::Label::workFax, "11"}, {contacts::Label::work, "22"}},
                     .emails = {{contacts::Label::work, "ada@x.org"}}}}};
    const auto book = contacts::OpenFolder(contacts::DefaultFolder());
    ASSERT_TRUE(book->save(card, {}));
    ASSERT_TRUE(book->setMe(card.persons[0].uid, {}));
    options = Dictionary("SenderName=Eve SenderPhoneNumber=\"7\"");
    run([](QWidget& window) {
        Choose(window, kSender, "Hide the sender");
        EXPECT_FALSE(Enabled(window, kName));
        Choose(window, kSender, "Show the sender");
        EXPECT_EQ(Text(window, kName), "Eve") << "has a name";
        Choose(window, kSender, "Hide the sender");
        Press(window, kOK);
    });
    EXPECT_FALSE(BooleanOr(options, CFSTR("ShowSender"), true));
    for (const char* key : {"SenderName", "SenderPhoneNumber", "LocalizedFromLabel"})
        EXPECT_FALSE(CFDictionaryContainsKey(options, String(key))) << key;
    const auto fillIn = [](SInt32 button) {
        return [button](QWidget& window) {
            Choose(window, kSender, "Show the sender");
            EXPECT_EQ(Text(window, kName), "Ada King");
            EXPECT_EQ(Text(window, kOrganization), "Engines");
            EXPECT_EQ(Text(window, kTelephone), "22") << "no fax";
            EXPECT_EQ(Text(window, kEmail), "ada@x.org");
            EXPECT_EQ(Text(window, kFaxNumber), "");
            Type(window, kFaxNumber, "33");
            EXPECT_TRUE(Preview(window).contains("Fax : 33"));
            Press(window, button);
        };
    };
    run(fillIn(kCancel));
    EXPECT_FALSE(CFDictionaryContainsKey(options, CFSTR("SenderName")));
    run(fillIn(kOK));
    EXPECT_EQ(option(CFSTR("SenderName")), "Ada King");
    EXPECT_EQ(option(CFSTR("SenderFaxNumber")), "33");
    EXPECT_EQ(option(CFSTR("LocalizedFaxLabel")), "Fax");
}

TEST_F(CoverSheetSetup, CancelKeepsANewImageAndRestoresTheOptions) {
    options = Dictionary("ShowWatermark=true WatermarkName=Gone Other=1");
    const Owned<CFDictionaryRef> before =
        Owned<CFDictionaryRef>::Adopt(CFDictionaryCreateMutableCopy(nullptr, 0, options));
    run([this](QWidget& window) {
        EXPECT_FALSE(IsMenuItemEnabled(Menu(window), ItemOf(Menu(window), "Edit…")));
        edit(window, "New…", "R&D");
        EXPECT_EQ(Control<QPushButton>(window, kImage).text(), "R&&D");
        EXPECT_TRUE(Preview(window).contains("R&D"));
        Press(window, kCancel);
    });
    EXPECT_TRUE(CFEqual(options, before));
    EXPECT_EQ(imageIndex, kNoCoverImageItem);
    EXPECT_EQ(NamesIn(kFaxImageStore), "R&D");
}

TEST_F(CoverSheetSetup, AnImageIsChosenEditedAndDeletedFromTheListOfPrintWatermarks) {
    StoreList({"Logo", "Draft", "Logo"});
    run([this](QWidget& window) {
        Pick(window, Menu(window), "Draft");
        edit(window, "Edit…", "Final");
        Press(window, kOK);
    });
    EXPECT_EQ(option(CFSTR("WatermarkName")), "Final");
    EXPECT_EQ(imageIndex, 3);
    EXPECT_EQ(NamesIn(kFaxImageStore), "Logo,Final,Logo");
    run([](QWidget& window) {
        EXPECT_TRUE(IsMenuItemChecked(Menu(window), 3));
        Pick(window, Menu(window), "Logo");
        Pick(window, Menu(window), "Delete");
        EXPECT_TRUE(IsMenuItemChecked(Menu(window), 1));
        EXPECT_EQ(ItemOf(Menu(window), "Logo"), 0) << "both";
        Press(window, kOK);
    });
    EXPECT_FALSE(BooleanOr(options, CFSTR("ShowWatermark"), true));
    EXPECT_FALSE(CFDictionaryContainsKey(options, CFSTR("WatermarkName")));
    EXPECT_EQ(NamesIn(kFaxImageStore), "Final");
    EXPECT_EQ(NamesIn(kWatermarkStore), "Final");
}

TEST_F(CoverSheetSetup, ADamagedStoreIsToldOfAndLeftAlone) {
    const auto file = home / "kalmo-print/Kalmo/com.kalmo.printing.faximage.plist";
    std::filesystem::create_directories(file.parent_path());
    WriteFile(file, "torn");
    run([this](QWidget& window) {
        EXPECT_EQ(CountMenuItems(Menu(window)), 6);
        edit(window, "New…", "Draft");
        EXPECT_EQ(CountMenuItems(Menu(window)), 6);
        Press(window, kOK);
    });
    ASSERT_EQ(notices.size(), 1u);
    EXPECT_TRUE(notices[0].find(file.string()) != std::string::npos) << notices[0];
    EXPECT_EQ(ReadFile(file), "torn");
}

}  // namespace
}  // namespace kalmo::test
