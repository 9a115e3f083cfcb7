// Menus of a PPD option's choices.
#pragma once

#include "settings/ppd_access.h"
#include "toolbox/menus.h"

namespace kalmo {

enum class Constraints { ignore, respect };

/// Empties the menu and fills it with the choices that the map knows, in the PPD's order, each with
/// its ticket value as reference constant; with `respect`, without those that conflict with the
/// PPD's defaults. Returns the number of items; 0 on null arguments.
SInt32 PPDPopulateMenuWithChoices(MenuRef menu, PPDRef ppd, CFStringRef keyword, UInt32 command,
                                  Constraints constraints);
/// The same for a popup's menu, whose maximum becomes the number of items.
SInt32 PPDPopulatePopupWithChoices(ControlRef popup, PPDRef ppd, CFStringRef keyword,
                                   Constraints constraints);

}  // namespace kalmo
