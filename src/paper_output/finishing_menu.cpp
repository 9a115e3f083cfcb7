#include "paper_output/finishing_menu.h"

#include <algorithm>

#include "settings/installable_options.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

/// `feature` null: an item that every printer with the group has. `textKey` stands in for a feature
/// without a label.
struct ItemRow {
    CFStringRef feature;
    CFStringRef textKey;
    UInt32 command;
    SInt32 value;
};

const ItemRow kStaples[] = {
    {nullptr, CFSTR("No Staple Value"), kNoStapleCommand, kNoFinishing},
    {CFSTR("SingleStapleKey"), CFSTR("1 Staple"), kSingleStapleCommand, 5},
    {CFSTR("DualStapleKey"), CFSTR("2 Staples"), kDualStapleCommand, 10},
    {CFSTR("MultipleStapleKey"), CFSTR("Multiple Staples"), kMultipleStaplesCommand, 54},
};
const ItemRow kGenericPunch = {CFSTR("GenericPunchKey"), CFSTR("HolePunch"), kPunchCommand, 2};
const ItemRow kPunches[] = {
    {CFSTR("DualPunchKey"), CFSTR("2 Hole Punch"), kPunch2Command, 3},
    {CFSTR("TriplePunchKey"), CFSTR("3 Hole Punch"), kPunch3Command, 4},
    {CFSTR("QuadruplePunchKey"), CFSTR("4 Hole Punch"), kPunch4Command, 5},
};
const ItemRow kNoPunch = {nullptr, CFSTR("None"), kNoPunchCommand, kNoFinishing};
const ItemRow kNoPunchBesideFolds = {nullptr, CFSTR("NoHolePunch"), kNoPunchCommand, kNoFinishing};
const ItemRow kCoilPunch = {CFSTR("GBCAdvancedPunchKey"), CFSTR("Coil Punch"), kCoilCommand, 0};
const ItemRow kFolds[] = {
    {nullptr, CFSTR("No Fold"), kNoFoldCommand, kNoFinishing},
    {CFSTR("CFoldKey"), CFSTR("FoldCFold"), kCFoldCommand, kFoldC},
    {CFSTR("ZFoldKey"), CFSTR("FoldZFold"), kZFoldCommand, kFoldZ},
    {CFSTR("ZFoldHalfSheetKey"), CFSTR("Z Fold Half Sheet"), kZFoldHalfSheetCommand,
     kFoldZHalfSheet},
};
const ItemRow kBooklet = {CFSTR("BookletFoldKey"), CFSTR("Booklet Creation..."), kBookletCommand,
                          0};

bool IsOffered(const ItemRow& row) { return !row.feature || getInstalledFeature(row.feature); }

Owned<CFStringRef> Label(const ItemRow& row, CFBundleRef bundle) {
    auto own = Owned<CFStringRef>::Adopt(
        row.feature ? CopyLocalizedStringForInstalledFeatureFromPlugin(row.feature, bundle)
                    : nullptr);
    return own ? own : CopyText(bundle, row.textKey);
}

void AppendSeparator(MenuRef menu) {
    AppendMenuItemTextWithCFString(menu, CFSTR("-"), kMenuItemSeparator, 0, nullptr);
}

void AppendIfOffered(MenuRef menu, CFBundleRef bundle, const ItemRow& row) {
    if (!IsOffered(row)) return;
    UInt16 item = 0;
    AppendMenuItemTextWithCFString(menu, Label(row, bundle), kMenuItemPlain, row.command, &item);
    SetMenuItemRefCon(menu, item, row.value);
}

template <std::size_t Count>
void AppendOffered(MenuRef menu, CFBundleRef bundle, const ItemRow (&rows)[Count]) {
    for (const ItemRow& row : rows) AppendIfOffered(menu, bundle, row);
}

void AppendPunches(MenuRef menu, CFBundleRef bundle, const FinishingDevices& devices) {
    if (IsOffered(kGenericPunch))
        AppendIfOffered(menu, bundle, kGenericPunch);
    else
        AppendOffered(menu, bundle, kPunches);
    AppendIfOffered(menu, bundle, devices.hasFolder ? kNoPunchBesideFolds : kNoPunch);
}

template <typename Act>
void ForEachItem(MenuRef menu, Act act) {
    for (UInt16 item = 1; item <= CountMenuItems(menu); ++item) {
        UInt32 command = 0;
        GetMenuItemCommandID(menu, item, &command);
        act(item, command);
    }
}

/// 0 when the menu has none.
UInt16 ItemWithCommand(MenuRef menu, UInt32 sought) {
    UInt16 found = 0;
    ForEachItem(menu, [&](UInt16 item, UInt32 command) {
        if (found == 0 && command == sought) found = item;
    });
    return found;
}

}  // namespace

OfferedFinishing OfficeFinishing() {
    const FinishingDevices devices = InstalledFinishingDevices();
    return {.staple = devices.hasStapler,
            .punch = devices.hasPuncher,
            .fold = std::ranges::any_of(
                kFolds,
                [](const ItemRow& row) { return row.feature && getInstalledFeature(row.feature); }),
            .other = IsOffered(kCoilPunch) || IsOffered(kBooklet)};
}

void PopulateOfficeFinishingMenu(MenuRef menu, CFBundleRef bundle) {
    DeleteMenuItems(menu, 1, CountMenuItems(menu));
    const OfferedFinishing offered = OfficeFinishing();
    if (offered.staple) AppendOffered(menu, bundle, kStaples);
    if (offered.punch) AppendPunches(menu, bundle, InstalledFinishingDevices());
    AppendIfOffered(menu, bundle, kCoilPunch);
    if (offered.fold) {
        AppendSeparator(menu);
        AppendOffered(menu, bundle, kFolds);
    }
    AppendIfOffered(menu, bundle, kBooklet);
}

void MarkFinishingMenu(MenuRef menu, const Finishing& finishing, bool bookletLayout) {
    ForEachItem(menu, [&](UInt16 item, UInt32 command) {
        ItemReference value = 0;
        GetMenuItemRefCon(menu, item, &value);
        CheckMenuItem(
            menu, item,
            IsFinishingMarked(finishing, bookletLayout, command, static_cast<SInt32>(value)));
    });
}

bool CoupleCoilPunch(MenuRef menu, Finishing* finishing, const Stock& stock) {
    const std::optional<bool> available = CoilPunchAvailable(stock);
    if (!available) return false;
    const UInt16 item = menu ? ItemWithCommand(menu, kCoilCommand) : UInt16{0};
    // Nor is a choice from before taken up again when coil punch comes back.
    const bool takesAway = !*available || (item != 0 && !IsMenuItemEnabled(menu, item));
    *available ? EnableMenuItem(menu, item) : DisableMenuItem(menu, item);
    if (!takesAway) return false;
    const bool wasChosen = finishing->coilPunch || finishing->option == kOptionCoilPunch;
    TakeAwayCoilPunch(finishing);
    CheckMenuItem(menu, item, false);
    return wasChosen;
}

}  // namespace kalmo
