// The Paper/Output panel: its controls, what they do to each other, and the ticket.
#include "paper_output/paper_output_panel.h"

#include "paper_output/finishing_menu.h"
#include "paper_output/print_check.h"
#include "settings/setting_menus.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "support/panel_rig.h"
#include "toolbox/menus.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kJobTypePopup = 102, kSetupButton = 103, kStockMenu = 106, kSeparators = 108,
                 kSidesPopup = 110, kStaplePopup = 113, kPunchPopup = 116, kFoldPopup = 119,
                 kBinPopup = 126, kFinishingMenu = 128, kOutputColor = 122;

/// What a printer with every device says; the system's own table knows three of them.
const _InstalledFeatureMap kEveryDevice[] = {{CFSTR("SingleStapleKey")},
                                             {CFSTR("MultipleStapleKey")},
                                             {CFSTR("DualPunchKey")},
                                             {CFSTR("CFoldKey")},
                                             {CFSTR("BookletFoldKey")},
                                             {CFSTR("GBCAdvancedPunchKey")},
                                             {}};

struct PaperOutputPanel : testing::Test, PanelRig {
    PaperOutputPanel() : PanelRig(GetPaperOutputPanelInterface, 'KPpo') {}

    void show(const _InstalledFeatureMap* features = InstalledFeatures) {
        initialize();
        LoadInstallableOptions(PPDGetCurrent(), features);
        ASSERT_EQ(open(), noErr);
    }
    const PaperOutputRecord& record() const {
        return static_cast<_PaperOutputContext*>(context)->record;
    }
    MenuRef menu() { return GetControlPopupMenu(ControlFromWidget(control(kFinishingMenu))); }
    /// 0 when there is none.
    UInt16 itemOf(UInt32 sought) {
        UInt32 found = 0;
        for (UInt16 item = CountMenuItems(menu()); item > 0; --item)
            if (GetMenuItemCommandID(menu(), item, &found) == noErr && found == sought) return item;
        return 0;
    }
    void command(UInt32 sought) {
        ASSERT_NE(itemOf(sought), 0);
        SimulateMenuChoice(ControlFromWidget(control(kFinishingMenu)), menu(), itemOf(sought));
    }
    SInt32 number(CFStringRef key) {
        sync(kSyncToTicket);
        return SInt32InTicket(printer.ticket, key, -77);
    }
    bool layoutInTicket() const { return FlagInTicket(printer.ticket, kBookletLayoutKey); }
    /// Answers the booklet dialog.
    void runBooklet(bool layout) {
        driver.expect([layout](QWidget& dialog) {
            FindControl<QCheckBox>(dialog, 'KPDE', 301)->setChecked(!layout);
            FindControl<QCheckBox>(dialog, 'KPDE', 301)->click();
            FindControl<QPushButton>(dialog, 'KPDE', 901)->click();
        });
        command(kBookletCommand);
    }
};

TEST_F(PaperOutputPanel, ChoicesReachTheTicketAndComeBack) {
    show();
    EXPECT_TRUE(control(kFinishingMenu) && control(kOutputColor));
    EXPECT_FALSE(control(kStaplePopup)) << "the menu offers staples";
    for (const auto& [id, keyword] : {std::pair{kSidesPopup, CFSTR("Duplex")},
                                      {kPunchPopup, CFSTR("KLPunch")},
                                      {kFoldPopup, CFSTR("KLFold")},
                                      {kBinPopup, CFSTR("OutputBin")}}) {
        SCOPED_TRACE(id);
        auto* popup = control<QComboBox>(id);
        const QString last = popup->itemText(popup->count() - 1);
        pick(id, last);
        sync(kSyncToTicket);
        const std::string chosen = choice(keyword);
        EXPECT_NE(chosen, "");
        pick(id, popup->itemText(0));
        choose(keyword, CFStringMakeConstant(chosen.c_str()));
        for (CFStringRef key : {CFSTR("com.kalmo.print.FinishingDuplex"),
                                CFSTR("com.apple.print.PrintSettings.PMDuplexing")})
            PMTicketReleaseItem(printer.ticket, key);
        sync(kSyncToUI);
        EXPECT_EQ(shown(id), last.toStdString());
    }
}

TEST_F(PaperOutputPanel, APrinterWithoutDevicesHasOnlyTheJobType) {
    printer = PrinterSession(WritePPD("Kalmo"));
    show();
    EXPECT_TRUE(control(kJobTypePopup));
    for (SInt32 id = kStockMenu; id <= 130; ++id) EXPECT_FALSE(control(id)) << id;
    EXPECT_EQ(number(CFSTR("com.kalmo.print.FinishingDuplex")), -77);
}

TEST_F(PaperOutputPanel, ATypeThatNeedsSetupIsSetUpAtOnce) {
    show();
    EXPECT_FALSE(control(kSetupButton)->isEnabled());
    driver.expectPress("Cancel");
    pick(kJobTypePopup, "Secure print");
    EXPECT_TRUE(control(kSetupButton)->isEnabled());
    driver.expectPress("OK");
    EXPECT_EQ(CheckPrintJob(), PrintCheckResult::refused);
    driver.expectPress("Cancel");
    control<QPushButton>(kSetupButton)->click();
    pick(kJobTypePopup, "Normal print");
    EXPECT_FALSE(control(kSetupButton)->isEnabled());
}

TEST_F(PaperOutputPanel, OnlyTransparenciesHaveSeparators) {
    show();
    for (const auto& [type, separated] : {std::pair{"Transparency", true}, {"Recycled", false}}) {
        choose(CFSTR("MediaType"), CFStringMakeConstant(type));
        sync(kSyncToUI);
        EXPECT_EQ(control(kSeparators)->isHidden(), !separated) << type;
    }
}

TEST_F(PaperOutputPanel, ABookletTakesSidesAndGivesThemBackButNotToAStaple) {
    put(CFSTR("com.kalmo.print.SpecialPages.FrontCover"),
        Owned<CFDictionaryRef>::Adopt(Cover().asTicket()));
    put(kBookletLayoutKey, kCFBooleanTrue);
    show(kEveryDevice);
    EXPECT_FALSE(record().bookletIsOn() || layoutInTicket()) << "the ticket's is not taken over";
    pick(kSidesPopup, control<QComboBox>(kSidesPopup)->itemText(0));
    const std::string before = shown(kSidesPopup);
    runBooklet(true);
    EXPECT_TRUE(layoutInTicket());
    EXPECT_TRUE(written(CFSTR("com.kalmo.print.SpecialPages.BackCover"))) << "a pair";
    EXPECT_FALSE(control(kSidesPopup)->isEnabled());
    EXPECT_EQ(GetPopupButtonTicketValue(ControlFromWidget(control(kSidesPopup))), 2);
    EXPECT_EQ(number(CFSTR("com.kalmo.print.FinishingDuplex")), 3);
    EXPECT_EQ(choice(CFSTR("Duplex")), "DuplexTumble");
    runBooklet(false);
    EXPECT_FALSE(layoutInTicket());
    EXPECT_TRUE(control(kSidesPopup)->isEnabled());
    EXPECT_EQ(shown(kSidesPopup), before) << "what was chosen before the booklet";
    EXPECT_EQ(record().jobStock.size(), kStockSizeLetter) << "the booklet had none of its own";
    runBooklet(true);
    command(kMultipleStaplesCommand);
    EXPECT_FALSE(layoutInTicket());
    EXPECT_EQ(record().duplex, kTwoSidedLongEdge) << "not what was chosen before";
    EXPECT_TRUE(IsMenuItemChecked(menu(), itemOf(kMultipleStaplesCommand)));
    EXPECT_FALSE(IsMenuItemChecked(menu(), itemOf(kBookletCommand)));
    sync(kSyncToTicket);
    EXPECT_EQ(choice(CFSTR("StapleLocation")), "MultipleStaples");
}

}  // namespace
}  // namespace kalmo::test
