// The Image Options panel between ticket and controls.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <set>

#include "image_options/image_options_panel.h"
#include "settings/ticket_keys.h"
#include "support/panel_rig.h"

namespace kalmo::test {
namespace {

class ImageOptionsPanel : public testing::Test, public PanelRig {
protected:
    ImageOptionsPanel() : PanelRig(GetImageOptionsPanelInterface) {}

    void setInvert(bool negative, bool mirror) {
        const auto dictionary = Owned<CFDictionaryRef>::Adopt(
            InvertImageCreateTicketFromOptions({true, negative, mirror}));
        PMTicketSetCFDictionary(printer.ticket, kTicketCreator, kInvertImageOptionsKey, dictionary,
                                false);
    }
    std::pair<bool, bool> invert() const {
        CFDictionaryRef dictionary = nullptr;
        PMTicketGetCFDictionary(printer.ticket, kInvertImageOptionsKey, &dictionary);
        II_Options options;
        InvertImageSetOptionsFromTicket(dictionary, &options);
        return {options.NegativeImage, options.MirrorImage};
    }
    template <typename Widget = QWidget>
    Widget* control(SInt32 id) {
        return FindControl<Widget>(window, 'KPDE', id);
    }
    void pick(const QString& text) { PanelRig::pick(control<QComboBox>(1502), text); }
};

TEST_F(ImageOptionsPanel, ItWritesWhatItHasReadBeforeAndAfterItsControlsExist) {
    choose(CFSTR("Resolution"), CFSTR("1800x1800dpi"));
    choose(CFSTR("KLEconomode"), CFSTR("Draft"));
    setInvert(true, false);
    initialize();
    for (const bool opened : {false, true}) {
        SCOPED_TRACE(opened);
        if (opened) open();
        choose(CFSTR("Resolution"), CFSTR("600x600dpi"));
        choose(CFSTR("KLEconomode"), CFSTR("None"));
        setInvert(false, true);
        EXPECT_EQ(sync(kSyncToTicket), noErr);
        EXPECT_EQ(choice(CFSTR("Resolution")), "1800x1800dpi");
        EXPECT_EQ(choice(CFSTR("KLEconomode")), "Draft");
        EXPECT_EQ(invert(), std::pair(true, false));
    }
}

TEST_F(ImageOptionsPanel, UnknownValuesAreKeptUntilAControlReplacesThem) {
    choose(CFSTR("KLEconomode"), CFSTR("Fancy"));
    choose(CFSTR("Resolution"), CFSTR("2400x2400dpi"));
    initialize();
    sync(kSyncToTicket);
    EXPECT_EQ(choice(CFSTR("KLEconomode")), "Fancy");
    open();
    sync(kSyncToUI);
    sync(kSyncToTicket);
    EXPECT_EQ(choice(CFSTR("KLEconomode")), "None") << "the box is off";
    EXPECT_EQ(choice(CFSTR("Resolution")), "2400x2400dpi") << "nothing was selected yet";
    pick("600 dpi");
    choose(CFSTR("Resolution"), CFSTR("2400x2400dpi"));
    sync(kSyncToUI);
    EXPECT_EQ(control<QComboBox>(1502)->currentText(), "600 dpi");
}

TEST_F(ImageOptionsPanel, ControlsShowTheTicketAndTheTicketTheControls) {
    initialize();
    open();
    choose(CFSTR("Resolution"), CFSTR("300x300dpi"));
    setInvert(true, false);
    for (int switches = 0; switches < 3; ++switches) {
        sync(kSyncToUI);
        EXPECT_EQ(control<QComboBox>(1502)->currentText(), "300 dpi");
        EXPECT_FALSE(control<QCheckBox>(1302)->isChecked());
        EXPECT_TRUE(control<QCheckBox>(2102)->isChecked());
        EXPECT_FALSE(control<QCheckBox>(2103)->isChecked());
        sync(kSyncToTicket);
        EXPECT_EQ(invert(), std::pair(true, false));
    }
    pick("200 dpi");
    for (const SInt32 box : {1302, 2102, 2103}) control<QCheckBox>(box)->click();
    sync(kSyncToTicket);
    EXPECT_EQ(choice(CFSTR("Resolution")), "200x200dpi");
    EXPECT_EQ(choice(CFSTR("KLEconomode")), "Draft");
    EXPECT_EQ(invert(), std::pair(false, true));
}

TEST_F(ImageOptionsPanel, ASecondOpenAndMissingArgumentsAreRefused) {
    const PDEInterfaceTable& panel = operations();
    EXPECT_EQ(panel.Initialize(context, nullptr, nullptr, nullptr, nullptr), kPMInvalidPDEContext);
    initialize();
    ASSERT_EQ(open(), noErr);
    panel.Close(context);
    EXPECT_EQ(open(), kPMInvalidPDEContext);
    EXPECT_EQ(panel.Sync(context, nullptr, kSyncToUI), kPMInvalidPrintSession);
    CFArrayRef titles = reinterpret_cast<CFArrayRef>(this), values = titles;
    EXPECT_EQ(panel.GetSummaryText(nullptr, &titles, &values), kPMInvalidPDEContext);
    EXPECT_TRUE(!titles && !values);
}

TEST_F(ImageOptionsPanel, APPDWithoutTheOptionsWritesNoResolution) {
    printer = PrinterSession(WritePPD("Kalmo"));
    initialize();
    open();
    sync(kSyncToTicket);
    EXPECT_EQ(choice(CFSTR("Resolution")), "");
    EXPECT_FALSE(control(1502)->isEnabled());
}

TEST_F(ImageOptionsPanel, PicturesAndTheirDescriptionsFollowTheChoice) {
    initialize();
    open();
    std::set<QString> descriptions;
    const auto see = [&](SInt32 id) {
        EXPECT_TRUE(descriptions
                        .insert(QAccessible::queryAccessibleInterface(control(id))
                                    ->text(QAccessible::Description))
                        .second);
    };
    see(1303);
    control<QCheckBox>(1302)->click();
    see(1303);
    for (const char* resolution : {"600 dpi", "1200 dpi", "1800 dpi", "200 dpi"}) {
        pick(resolution);
        see(1503);
    }
    see(2104);
    for (const SInt32 box : {2102, 2103, 2102}) {
        control<QCheckBox>(box)->click();
        see(2104);
    }
}

}  // namespace
}  // namespace kalmo::test
