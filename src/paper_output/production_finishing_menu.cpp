#include "paper_output/finishing_menu.h"
#include "settings/installable_options.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

bool Always() { return true; }

bool HasOneStaple() {
    return AnyInstalled(
        {CFSTR("1StapleTL"), CFSTR("1StapleTR"), CFSTR("1StapleBR"), CFSTR("1StapleBL")});
}
bool HasTwoStaples() {
    return AnyInstalled(
        {CFSTR("2StaplesT"), CFSTR("2StaplesR"), CFSTR("2StaplesB"), CFSTR("2StaplesL")});
}
bool HasCenterStaple() {
    return AnyInstalled(
        {CFSTR("1StapleT"), CFSTR("1StapleR"), CFSTR("1StapleB"), CFSTR("1StapleL")});
}
bool HasBinder() { return getInstalledFeature(CFSTR("BindLeft")); }
bool HasTwoHoles() {
    return AnyInstalled(
        {CFSTR("2HolePunchL"), CFSTR("2HolePunchT"), CFSTR("2HolePunchR"), CFSTR("2HolePunchB")});
}
bool HasThreeHoles() {
    return AnyInstalled(
        {CFSTR("3HolePunchL"), CFSTR("3HolePunchT"), CFSTR("3HolePunchR"), CFSTR("3HolePunchB")});
}
bool HasFourHoles() {
    return AnyInstalled(
        {CFSTR("4HolePunchL"), CFSTR("4HolePunchT"), CFSTR("4HolePunchR"), CFSTR("4HolePunchB")});
}
bool HasFolds() {
    return AnyInstalled({CFSTR("BiFoldMultiple"), CFSTR("BiFoldStapleMultiple"),
                         CFSTR("BiFoldSingleInside"), CFSTR("BiFoldSingleOutside"),
                         CFSTR("CFoldSingleInside"), CFSTR("CFoldSingleOutside"),
                         CFSTR("ZFoldSingleInside"), CFSTR("ZFoldSingleOutside")});
}
bool HasHalfSheetFold() { return AnyInstalled({CFSTR("ZFoldHalfLeft"), CFSTR("ZFoldHalfRight")}); }
/// Two of stapler, puncher and half sheet folder; staples in the centre do not count.
bool HasSeveral() {
    const bool staples = HasOneStaple() || HasTwoStaples();
    const bool holes = HasTwoHoles() || HasThreeHoles() || HasFourHoles();
    return (staples && holes) || ((staples || holes) && HasHalfSheetFold());
}
bool HasBookletMaker() { return getInstalledFeature(CFSTR("SBM")); }
bool HasCustom() { return getInstalledFeature(CFSTR("Custom")); }
bool HasSlipSheets() { return getInstalledFeature(CFSTR("SlipSheets")); }
bool HasOffset() { return getInstalledFeature(CFSTR("Offset")); }
bool HasBookletFold() {
    return AnyInstalled({CFSTR("BiFoldMultiple"), CFSTR("BiFoldStapleMultiple")});
}

/// `textKey` null: a separator.
struct ItemRow {
    CFStringRef textKey;
    UInt32 command;
    bool (*isOffered)();
};
const ItemRow kItems[] = {
    {CFSTR("Printer Default"), 'Pdef', Always},
    {CFSTR("None"), 'None', Always},
    {CFSTR("1 Staple..."), 'Stp1', HasOneStaple},
    {CFSTR("2 Staples..."), 'Stp2', HasTwoStaples},
    {CFSTR("Center Staple..."), 'CStp', HasCenterStaple},
    // The plain "Bind" has a text, too, and is never offered (kept as it is).
    {CFSTR("Bind..."), 'Bind', HasBinder},
    {CFSTR("2 Hole Punch..."), 'Hpn2', HasTwoHoles},
    {CFSTR("3 Hole Punch..."), 'Hpn3', HasThreeHoles},
    {CFSTR("4 Hole Punch..."), 'Hpn4', HasFourHoles},
    {CFSTR("Fold..."), 'Fold', HasFolds},
    {CFSTR("Z Fold Half Sheet..."), 'Zfol', HasHalfSheetFold},
    {CFSTR("Multiple Finishing..."), 'FMul', HasSeveral},
    {CFSTR("SignatureBooklet"), 'FSBM', HasBookletMaker},
    {CFSTR("Custom..."), 'Cust', HasCustom},
    {nullptr, 0, Always},
    {CFSTR("Slip Sheets"), 'Spsh', HasSlipSheets},
    {CFSTR("Offset/Subset..."), 'Ofsb', HasOffset},
    {nullptr, 0, Always},
    {CFSTR("Booklet Creation..."), 'Bkcr', HasBookletFold},
};

}  // namespace

void PopulateFinishingMenu(MenuRef menu, CFBundleRef bundle) {
    DeleteMenuItems(menu, 1, CountMenuItems(menu));
    for (const auto& [textKey, command, isOffered] : kItems) {
        if (!isOffered()) continue;
        const auto text =
            textKey ? CopyText(bundle, textKey) : Owned<CFStringRef>::Retain(CFSTR("-"));
        AppendMenuItemTextWithCFString(menu, text, textKey ? kMenuItemPlain : kMenuItemSeparator,
                                       command, nullptr);
    }
}

}  // namespace kalmo
