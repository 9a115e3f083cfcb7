// The menus that finishing is chosen with, and their marks.
//
// Every item of the office menu carries its value as reference constant.
#pragma once

#include "paper_output/finishing.h"
#include "toolbox/menus.h"

namespace kalmo {

/// Which groups of choices the office menu has, by the printer's installable options.
struct OfferedFinishing {
    bool staple = false, punch = false, fold = false;
    bool other = false;  // coil punch, booklets

    [[nodiscard]] bool any() const { return staple || punch || fold || other; }
};
[[nodiscard]] OfferedFinishing OfficeFinishing();

/// Both empty the menu first. Labels are the installable options' own, or those of the summary.
void PopulateOfficeFinishingMenu(MenuRef menu, CFBundleRef bundle);
/// Of a production printer; its items open dialogs and have no values.
void PopulateFinishingMenu(MenuRef menu, CFBundleRef bundle);

/// Checks the items that `finishing` has chosen and no other.
void MarkFinishingMenu(MenuRef menu, const Finishing& finishing, bool bookletLayout);
/// Lets coil punch be chosen as the paper allows; `menu` may be null. True when the summary is to
/// be told again.
bool CoupleCoilPunch(MenuRef menu, Finishing* finishing, const Stock& stock);

}  // namespace kalmo
