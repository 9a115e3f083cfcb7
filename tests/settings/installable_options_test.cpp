#include "settings/installable_options.h"

#include "settings/ppd_file.h"
#include "support/bundles.h"

namespace kalmo {
namespace {

using test::InstallableGroup;
using test::PPDOption;
using test::PrinterWithPPD;
using test::TakeText;

const _InstalledFeatureMap kTable[] = {
    {CFSTR("Staples"), CFSTR("Option4"), CFSTR("Office"), nullptr, 1},
    {CFSTR("Staples"), CFSTR("Option4"), CFSTR("Pro"), CFSTR("Pro label"), 2},
    {CFSTR("Staples"), nullptr, nullptr, CFSTR("Always label"), 3},
    {CFSTR("Fax"), CFSTR("Option5"), CFSTR("True"), CFSTR("Missing label"), 4},
    {},
};

std::string GroupWith(const std::string& staples, const std::string& fax) {
    return InstallableGroup(PPDOption("Option4", staples, {"None", "Office", "Pro"}) +
                            PPDOption("Option5", fax, {"True", "False"}));
}

SInt32 ValueOf(CFStringRef feature) {
    SInt32 value = 777;
    getInstallableOptionTicketValue(feature, &value);
    return value;
}

TEST(InstallableOptions, FirstRowThatHoldsAnswers) {
    const struct {
        const char *why, *staples;
        SInt32 value;
        const char* label;
    } rows[] = {
        {"first row, its label is the next one's that holds", "Office", 1, "Always"},
        {"second row", "Pro", 2, "Pro"},
        {"row without an option", "None", 3, "Always"},
    };
    const auto bundle = Owned<CFBundleRef>::Adopt(test::OpenBundle(
        test::WriteBundle(test::MakeFolder("bundle"), "Labels", "com.example.labels",
                          {{"Resources/en.lproj/Localizable.strings",
                            "\"Pro label\" = \"Pro\";\n\"Always label\" = \"Always\";\n"}})));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const PrinterWithPPD printer(GroupWith(row.staples, "True"));
        ASSERT_TRUE(LoadInstallableOptions(printer.ppd(), kTable));
        EXPECT_EQ(ValueOf(CFSTR("Staples")), row.value);
        EXPECT_EQ(
            TakeText(CopyLocalizedStringForInstalledFeatureFromPlugin(CFSTR("Staples"), bundle)),
            row.label);
        EXPECT_EQ(TakeText(CopyLocalizedStringForInstalledFeatureFromPlugin(CFSTR("Fax"), bundle)),
                  "STRING NOT FOUND");
    }
}

TEST(InstallableOptions, SecondLoadKeepsTheFirstAnswers) {
    PrinterWithPPD printer(GroupWith("Pro", "False"));
    ASSERT_TRUE(LoadInstallableOptions(printer.ppd(), kTable));
    PPDCloseCurrent();
    printer.usePPD(test::PPDText(GroupWith("Office", "True")));
    EXPECT_FALSE(LoadInstallableOptions(printer.ppd(), InstalledFeatures));
    EXPECT_EQ(ValueOf(CFSTR("Staples")), 2);
    EXPECT_EQ(ValueOf(CFSTR("Fax")), 777) << "none of its rows holds";
    UnloadInstallableOptions();
    EXPECT_TRUE(LoadInstallableOptions(printer.ppd(), kTable));
    EXPECT_TRUE(getInstalledFeature(CFSTR("Fax")));
}

TEST(InstallableOptions, OnlyTheGroupOfThatNameCounts) {
    const PrinterWithPPD printer("*OpenGroup: InstallableOption/Options\n" +
                                 PPDOption("Option5", "True", {"True"}) +
                                 "*CloseGroup: InstallableOption\n");
    EXPECT_FALSE(LoadInstallableOptions(printer.ppd(), kTable));
    EXPECT_TRUE(getInstalledFeature(CFSTR("Staples"))) << "a row without an option holds always";
    EXPECT_FALSE(LoadInstallableOptions(printer.ppd(), kTable)) << "an empty group is loaded too";
}

}  // namespace
}  // namespace kalmo
