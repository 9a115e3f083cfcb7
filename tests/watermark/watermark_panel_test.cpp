// The Booklet/Watermark panel between ticket, store, controls and the drawing for the job.
#include "watermark/watermark_panel.h"

#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "support/dictionaries.h"
#include "support/drawn_page.h"
#include "support/panel_rig.h"
#include "support/worker_wait.h"
#include "toolbox/menus.h"
#include "watermark/fresh_store.h"
#include "watermark/watermark_store.h"

namespace kalmo::test {
namespace {

#define kWatermarkKey CFSTR("com.kalmo.print.Watermark")
constexpr SInt32 kMenu = 1702, kOptions = 1703, kWarning = 1704, kPage = 1705, kBooklet = 1707;

struct WatermarkPanel : testing::Test, PanelRig {
    WatermarkPanel() : PanelRig(GetBookletWatermarkPanelInterface) {
        choose(CFSTR("PageSize"), CFSTR("Letter"));
    }

    QString label(SInt32 id) { return control<QLabel>(id)->text(); }
    ControlRef button() { return ControlFromWidget(control(kMenu)); }
    MenuRef menu() { return GetControlPopupMenu(button()); }
    /// "*" marks what is chosen, "(...)" what cannot be.
    std::string items(int first = 0, int count = -1) {
        QStringList texts;
        for (UInt16 item = 1; item <= CountMenuItems(menu()); ++item) {
            QString text =
                QString::fromStdString(TakeText(CopyMenuItemTextAsCFString(menu(), item)));
            if (IsMenuItemSeparator(menu(), item))
                text = "-";
            else if (!IsMenuItemEnabled(menu(), item))
                text = "(" + text + ")";
            texts << (IsMenuItemChecked(menu(), item) ? "*" : "") + text;
        }
        return texts.mid(first, count).join(", ").toStdString();
    }
    using PanelRig::choose;
    void choose(const char* text) {
        ASSERT_NE(ItemOf(menu(), text), 0) << text;
        SimulateMenuChoice(button(), menu(), ItemOf(menu(), text));
        WaitForWorkers();
    }
    void chooseOption(const char* text) {
        const MenuRef options = GetMenuItemHierarchicalMenu(menu(), ItemOf(menu(), "Options"));
        SimulateMenuChoice(button(), options, ItemOf(options, text));
    }
    /// The editor that opens next gets this text and OK.
    void type(const QString& text) {
        driver.expect([text](QWidget& editor) {
            auto* const field = editor.findChild<QLineEdit*>("text");
            field->selectAll();
            QTest::keyClicks(field, text);
            FindControl<QPushButton>(editor, 'KPDE', 901)->click();
        });
    }

    using PanelRig::written;
    CFDictionaryRef written() { return written(kWatermarkKey); }
    template <typename Ref = CFStringRef>
    static Ref value(CFDictionaryRef settings, CFStringRef key) {
        return static_cast<Ref>(CFDictionaryGetValue(settings, key));
    }
    /// The drawing that goes with the job, one pixel to the point.
    static QImage drawing(CFDictionaryRef settings) {
        const auto data = value<CFDataRef>(settings, CFSTR("Drawing"));
        return PagePicture(Reopened({reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
                                     static_cast<std::size_t>(CFDataGetLength(data))}));
    }
    QImage preview() {
        WaitForWorkers();
        return control(kPage)->grab().toImage();
    }
    static bool isStored(const char* name, _WatermarkData* record = nullptr) {
        WatermarkHolder found;
        const bool stored = loadWatermarkData(kWatermarkStore, CFStringMakeConstant(name), *found);
        if (record) *record = *found, record->glyphs = nullptr;
        return stored;
    }

    std::filesystem::path store = FreshStore();
};

/// Pixels that are not grey.
int Coloured(const QImage& picture) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixelColor(x, y).saturation() > 8;
    return count;
}

TEST_F(WatermarkPanel, ADefaultWatermarkIsChosenShownAndTakenAlong) {
    show();
    EXPECT_EQ(items(), "*None, Draft, Confidential, Copy, -, (Options), New…, (Edit…), (Delete)");
    EXPECT_FALSE(written());
    EXPECT_FALSE(control(kBooklet)->isEnabled()) << "nobody owns booklets here";
    EXPECT_EQ(Coloured(preview()), 0);
    choose("Confidential");
    EXPECT_EQ(items(), "None, Draft, *Confidential, Copy, -, Options, New…, Edit…, Delete");
    EXPECT_EQ(control<QPushButton>(kMenu)->text(), "Confidential");
    EXPECT_GT(Coloured(preview()), 200);
    chooseOption("In the foreground");
    chooseOption("On page 1 only");
    EXPECT_EQ(label(kOptions), "In the foreground\nOn page 1 only");
    const CFDictionaryRef settings = written();
    ASSERT_TRUE(settings);
    EXPECT_EQ(CFStringToUTF8(value(settings, CFSTR("Name"))), "Confidential");
    EXPECT_EQ(SInt32InDictionary(settings, CFSTR("Layer")), 3);
    EXPECT_EQ(SInt32InDictionary(settings, CFSTR("Pages")), 5);
    const auto record = value<CFDictionaryRef>(settings, CFSTR("Record"));
    EXPECT_EQ(SInt32InDictionary(record, CFSTR("glyphCount")), 12);
    const CGRect ink = InkOf(drawing(settings));
    EXPECT_NEAR(CGRectGetMidX(ink), 612 / 2.0, 1);
    EXPECT_NEAR(CGRectGetMidY(ink), 792 / 2.0, 1);
    _WatermarkData kept{};
    EXPECT_TRUE(isStored("Confidential", &kept));
    EXPECT_EQ(kept.glyphCount, 12) << "the preview's drawing lays it out for printing";
    choose("None");
    EXPECT_FALSE(written());
    EXPECT_EQ(Coloured(preview()), 0);
}

TEST_F(WatermarkPanel, ATicketsWatermarkPrintsAsItIsThereAndIsNotSavedHere) {
    auto watermark =
        Dictionary("Name=Draft Layer=9 Pages=5 Unknown=7 Drawing=no PageWidth=792 PageHeight=612");
    WatermarkHolder record;
    setDefaultValues(*record, 0);
    SetWatermarkText(record->textString, CFSTR("Draft"));
    record->angle = 90;
    CFDictionarySetValue(watermark, CFSTR("Record"),
                         Owned<CFMutableDictionaryRef>::Adopt(CreateWatermarkEntry(*record)));
    put(kWatermarkKey, watermark);
    PMTicketSetSInt32(PMSessionGetTicket(printer.session, kPMPageFormatTicket), CFSTR("K"),
                      kOrientationKey, 2, false);
    ASSERT_EQ(initialize(), noErr);
    const CFDictionaryRef unattended = written();
    EXPECT_EQ(SInt32InDictionary(unattended, CFSTR("Unknown")), 7);
    const QImage page = drawing(unattended);
    EXPECT_EQ(page.size(), QSize(792, 612)) << "landscape";
    EXPECT_GT(InkOf(page).size.height, 2 * InkOf(page).size.width);
    ASSERT_EQ(open(), noErr);
    EXPECT_GT(Coloured(preview()), 100);
    EXPECT_EQ(label(kOptions), "In the background\nOn page 1 only");
    _WatermarkData stored{};
    EXPECT_TRUE(isStored("Draft", &stored));
    EXPECT_EQ(stored.angle, 45);
    sync(kSyncToUI);
    EXPECT_FALSE(IsMenuItemEnabled(menu(), ItemOf(menu(), "Delete"))) << "not the user's";
    type("Job's");
    choose("Edit…");
    EXPECT_TRUE(isStored("Job's") && isStored("Draft")) << "the user's own stays";
    choose("Draft");
    EXPECT_EQ(
        SInt32InDictionary(value<CFDictionaryRef>(written(), CFSTR("Record")), CFSTR("angle")), 45)
        << "chosen here it is the user's own";
}

TEST_F(WatermarkPanel, WhatIsNoWatermarkInATicketIsNone) {
    for (const char* entries : {"Name=5 Record=6", "Name=Draft", "Record=true", "", "Name=\"\""}) {
        put(kWatermarkKey, Dictionary(entries));
        if (context && !window.findChild<QLabel*>()) show();
        sync(kSyncToUI);
        EXPECT_EQ(items(0, 1), "*None") << entries;
        EXPECT_FALSE(written()) << entries;
    }
}

TEST_F(WatermarkPanel, DeletingAsksAndNothingBringsTheWatermarkBack) {
    show();
    choose("Draft");
    driver.expectPress("Cancel");
    choose("Delete");
    EXPECT_TRUE(isStored("Draft"));
    driver.expectPress("Delete");
    renderWatermark(static_cast<_BookletWatermarkContext*>(context));
    choose("Delete");
    EXPECT_FALSE(isStored("Draft")) << "a drawing under way saved it again";
    Owned<CFMutableArrayRef> names;
    loadWatermarkList(kWatermarkStore, nullptr, names.adopt());
    EXPECT_EQ(CFArrayGetCount(names), 2);
    EXPECT_EQ(items(0, 3), "*None, Confidential, Copy");
}

TEST_F(WatermarkPanel, NewAndEditedWatermarksStandInTheListOnceAndAFailureIsTold) {
    show();
    type("R&D <only>");
    choose("New…");
    EXPECT_TRUE(isStored("R&D <only>"));
    EXPECT_EQ(items(0, 5), "None, Draft, Confidential, Copy, *R&D <only>");
    EXPECT_EQ(control<QPushButton>(kMenu)->text(), "R&&D <only>");
    type("Secret");
    choose("Edit…");
    EXPECT_FALSE(isStored("R&D <only>"));
    EXPECT_EQ(items(3, 2), "Copy, *Secret");
    WriteFile(store, "damaged");
    type("Lost");
    driver.expectPress("OK");
    choose("New…");
    EXPECT_EQ(ReadFile(store), "damaged");
    EXPECT_EQ(CFStringToUTF8(value(written(), CFSTR("Name"))), "Lost") << "printed all the same";
    EXPECT_GT(Coloured(preview()), 50);
}

TEST_F(WatermarkPanel, AMissingPictureIsSaidAndTakesNothingAlong) {
    WatermarkHolder record;
    setDefaultValues(*record, 0);
    SetWatermarkText(record->filename, CFSTR("logo.png"));
    SetWatermarkText(record->filePath, CFSTR("/nowhere/logo.png"));
    saveWatermarkData(kWatermarkStore, *record);
    saveWatermarkList(kWatermarkStore, Array({CFSTR("logo.png")}));
    show();
    EXPECT_EQ(label(kWarning), "");
    choose("logo.png");
    EXPECT_TRUE(label(kWarning).contains("cannot be read"));
    EXPECT_FALSE(CFDictionaryContainsKey(written(), CFSTR("Drawing")));
}

}  // namespace
}  // namespace kalmo::test
