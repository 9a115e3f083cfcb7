// The booklet dialog, through its controls.
#include "paper_output/booklet_dialog.h"

#include "paper_output/dialog_test.h"
#include "settings/ppd_choices.h"
#include "settings/ppd_file.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kLayout = 301, kOutlines = 302, kPaper = 304, kGutter = 306, kCreep = 309,
                 kFold = 312;

struct BookletDialogs : DialogTest {
    BookletDialogs() { printer.useFile(SamplePPD("kalmo-office-color")); }
    SInt32 run(const ModalDriver::Answer& answer) {
        driver.expect(answer);
        return RunModalBookletDialog(bundle, printer.ppd(), &choice);
    }
    PrinterWithPPD printer{""};
    BookletChoice choice;
};

TEST_F(BookletDialogs, TakeWhatIsChosen) {
    choice.booklet.gutter = 9999;
    run([](QWidget& window) {
        EXPECT_EQ(Text(window, kGutter), "144") << "held at the range's end";
        for (const bool layout : {false, true}) {
            for (const SInt32 id : {kOutlines, kPaper, kGutter, kCreep})
                EXPECT_EQ(Enabled(window, id), layout) << id;
            if (!layout) Press(window, kLayout);
        }
        Press(window, kOutlines);
        Choose(window, kPaper, "A3");
        Type(window, kGutter, "30");
        Choose(window, kFold, "Booklet, folded and stapled");
        Type(window, kCreep, "73");
        Control<QAbstractButton>(window, kOK).click();  // the focus stays in the field
        EXPECT_EQ(Text(window, kCreep), "72") << "put right, and looked at";
        Press(window, kOK);
    });
    EXPECT_EQ(choice.booklet.mode, kBookletOn);
    EXPECT_EQ(choice.booklet.drawOutlines, 1);
    EXPECT_EQ(PPDChoiceForTicketValue(CFSTR("PageSize"), choice.booklet.newSize), CFSTR("A3"));
    EXPECT_EQ(choice.booklet.gutter, 30);
    EXPECT_EQ(choice.booklet.creep, 72);
    EXPECT_EQ(choice.fold, kFoldBiStaple);
}

TEST_F(BookletDialogs, LeaveOtherFoldsAloneAndAskForNoneThatThePrinterLacks) {
    choice.fold = kFoldC;
    run([](QWidget& window) { Press(window, kOK); });
    PPDCloseCurrent();
    printer.usePPD(PPDText(""));
    run([](QWidget& window) {
        EXPECT_TRUE(Control(window, kFold).isHidden());
        Press(window, kOK);
    });
    EXPECT_EQ(choice.fold, kFoldC);
}

}  // namespace
}  // namespace kalmo::test
