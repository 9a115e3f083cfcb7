// The Advanced panel between ticket and controls.
#include "image_options/advanced_panel.h"
#include "settings/ticket.h"
#include "support/panel_rig.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kPopups[] = {602, 604, 606, 614, 616};

struct AdvancedPanel : testing::Test, PanelRig {
    AdvancedPanel() : PanelRig(GetAdvancedPanelInterface) {}

    QStringList allShown() {
        QStringList texts;
        for (const SInt32 id : kPopups) texts << control<QComboBox>(id)->currentText();
        return texts;
    }
    /// Booklet order, rotation, side, banner and offset, once they are written.
    QStringList written() {
        EXPECT_EQ(sync(kSyncToTicket), noErr);
        QStringList values;
        for (const CFStringRef key : numbers)
            values << QString::number(SInt32InTicket(printer.ticket, key, 0));
        for (const CFStringRef key : {CFSTR("KLOutputOption"), CFSTR("JCLBanner"), CFSTR("Jog")})
            values << QString::fromStdString(choice(key));
        return values;
    }
    CFStringRef numbers[2] = {CFSTR("com.kalmo.print.AdvancedBookletLayoutOrderStr"),
                              CFSTR("com.kalmo.print.AdvancedRotateImage180")};
};

TEST_F(AdvancedPanel, ChoicesReachTheTicketAndStayWhenTheyAreReadAgain) {
    initialize();
    EXPECT_EQ(written(), (QStringList{"2", "0", "False", "False", "None"})) << "an empty ticket";
    open();
    const QStringList chosen = {"Left to right", "On", "Face up", "On", "Each set"};
    for (int row = 0; row < chosen.size(); ++row) pick(kPopups[row], chosen[row]);
    EXPECT_EQ(written(), (QStringList{"1265986158", "2", "True", "True", "EndOfSet"}));
    sync(kSyncToUI);
    EXPECT_EQ(allShown(), chosen) << "both orders have the same value";
}

TEST_F(AdvancedPanel, WhatWasReadIsWrittenBackTheRotationLessOne) {
    choose(CFSTR("Jog"), CFSTR("EachPage"));
    show();
    const QStringList before = allShown();
    // One less than the least does not fit into a ticket's number any more.
    for (const auto& [number, less] : {std::pair(3, "2"), {INT32_MIN, "0"}}) {
        for (const CFStringRef key : numbers)
            PMTicketSetSInt32(printer.ticket, CFSTR("K"), key, number, false);
        sync(kSyncToUI);
        EXPECT_EQ(allShown(), before) << "no number selects a row";
        EXPECT_EQ(written(),
                  (QStringList{QString::number(number), less, "False", "False", "EachPage"}));
    }
}

TEST_F(AdvancedPanel, WhatThePrinterLacksIsDisabled) {
    printer = PrinterSession(WritePPD("Kalmo"));
    show();
    for (const SInt32 id : kPopups) EXPECT_EQ(control(id)->isEnabled(), id < 606) << id;
}

}  // namespace
}  // namespace kalmo::test
