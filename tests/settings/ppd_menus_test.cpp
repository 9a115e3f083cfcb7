#include "settings/ppd_menus.h"

#include "settings/popup.h"

namespace kalmo {
namespace {

using test::Items;
using test::Popup;
using test::PPDOption;
using test::PrinterWithPPD;

constexpr auto ignore = Constraints::ignore;
constexpr auto respect = Constraints::respect;

TEST(PPDMenus, KnownChoicesInTheOrderOfThePPD) {
    const PrinterWithPPD printer(
        PPDOption("KLFold", "C", {"Z/Zed", "Origami/Swan", "C/\xFF\xFE", "None/"}) +
        PPDOption("KLImageQuality", "Normal", {"Lighten1", "Normal"}));
    Popup popup;
    testing::internal::CaptureStderr();
    EXPECT_EQ(
        PPDPopulateMenuWithChoices(popup.menu, printer.ppd(), CFSTR("KLFold"), 'Fold', ignore), 3);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Skipped unrecognized choice in PPD: Origami\n");
    EXPECT_EQ(popup.items(), (Items{"Zed=20", "C=19", "None=1"}));
    PPDPopulatePopupWithChoices(popup.control, printer.ppd(), CFSTR("KLImageQuality"), ignore);
    EXPECT_EQ(popup.items()[0], "Lighten1=-1") << "offered like any value";
}

TEST(PPDMenus, MissingOptionEmptiesTheMenuAndSaysSo) {
    const PrinterWithPPD printer(PPDOption("KLFold", "C", {"C"}));
    Popup popup;
    PPDPopulatePopupWithChoices(popup.control, printer.ppd(), CFSTR("KLFold"), ignore);
    testing::internal::CaptureStderr();
    EXPECT_EQ(PPDPopulatePopupWithChoices(popup.control, printer.ppd(), CFSTR("KLPunch"), ignore),
              0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Expected PPD option not found: KLPunch\n");
    EXPECT_EQ(CountMenuItems(popup.menu), 0);
}

TEST(PPDMenus, ConflictsWithTheDefaultsAreLeftOutOnRequest) {
    const auto options = PPDOption("KLFold", "None", {"None", "C", "Z"}) +
                         PPDOption("Duplex", "DuplexNoTumble", {"None", "DuplexNoTumble"});
    const std::string noFoldedDuplex = "*UIConstraints: *KLFold C *Duplex DuplexNoTumble\n";
    const struct {
        const char* why;
        std::string body;
        const char* marked;  // choice of Duplex before the menu is asked for
        Constraints constraints;
        Items items;
    } rows[] = {
        {"what was marked before does not count",
         options + noFoldedDuplex,
         "None",
         respect,
         {"None=1", "Z=20"}},
        {"constraints ignored",
         options + noFoldedDuplex,
         "DuplexNoTumble",
         ignore,
         {"None=1", "C=19", "Z=20"}},
        {"defaults that conflict empty every menu",
         options + PPDOption("KLPunch", "HolePunch", {"None", "HolePunch"}) +
             "*UIConstraints: *KLPunch HolePunch *Duplex DuplexNoTumble\n",
         "None",
         respect,
         {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const PrinterWithPPD printer(row.body);
        PPDMarkDefaults(printer.ppd());
        PPDMarkChoice(printer.ppd(), "Duplex", row.marked);
        Popup popup;
        PPDPopulatePopupWithChoices(popup.control, printer.ppd(), CFSTR("KLFold"), row.constraints);
        EXPECT_EQ(popup.items(), row.items);
    }
}

}  // namespace
}  // namespace kalmo
