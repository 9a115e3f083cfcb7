// The Image Options panel between ticket and controls.
#include "image_options/image_options_panel.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "support/panel_rig.h"

namespace kalmo::test {
namespace {

struct ImageOptionsPanel : testing::Test, PanelRig {
    ImageOptionsPanel() : PanelRig(GetImageOptionsPanelInterface) {}

    void setInvert(bool negative, bool mirror) {
        put(kInvertImageOptionsKey,
            Owned<CFDictionaryRef>::Adopt(
                InvertImageCreateTicketFromOptions({true, negative, mirror})));
    }
    std::pair<bool, bool> invert() const {
        II_Options options;
        InvertImageSetOptionsFromTicket(DictionaryInTicket(printer.ticket, kInvertImageOptionsKey),
                                        &options);
        return {options.NegativeImage, options.MirrorImage};
    }
};

TEST_F(ImageOptionsPanel, ItWritesWhatItHasReadBeforeAndAfterItsControlsExist) {
    choose(CFSTR("KLEconomode"), CFSTR("Draft"));
    setInvert(true, false);
    initialize();
    for (const bool opened : {false, true}) {
        if (opened) open();
        choose(CFSTR("KLEconomode"), CFSTR("None"));
        setInvert(false, true);
        EXPECT_EQ(sync(kSyncToTicket), noErr);
        EXPECT_EQ(choice(CFSTR("KLEconomode")), "Draft") << opened;
        EXPECT_EQ(invert(), std::pair(true, false)) << opened;
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
    pick(1502, "600 dpi");
    choose(CFSTR("Resolution"), CFSTR("2400x2400dpi"));
    sync(kSyncToUI);
    EXPECT_EQ(shown(1502), "600 dpi");
}

TEST_F(ImageOptionsPanel, ControlsShowTheTicketAndTheTicketTheControls) {
    show();
    choose(CFSTR("Resolution"), CFSTR("300x300dpi"));
    setInvert(true, false);
    for (int switches = 0; switches < 3; ++switches) {
        sync(kSyncToUI);
        EXPECT_EQ(shown(1502), "300 dpi");
        EXPECT_FALSE(control<QCheckBox>(1302)->isChecked());
        EXPECT_TRUE(control<QCheckBox>(2102)->isChecked());
        EXPECT_FALSE(control<QCheckBox>(2103)->isChecked());
        sync(kSyncToTicket);
        EXPECT_EQ(invert(), std::pair(true, false));
    }
    pick(1502, "200 dpi");
    for (const SInt32 box : {1302, 2102, 2103}) control<QCheckBox>(box)->click();
    sync(kSyncToTicket);
    EXPECT_EQ(choice(CFSTR("Resolution")), "200x200dpi");
    EXPECT_EQ(choice(CFSTR("KLEconomode")), "Draft");
    EXPECT_EQ(invert(), std::pair(false, true));
}

}  // namespace
}  // namespace kalmo::test
