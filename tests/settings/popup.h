// A popup control of its own for a test.
#pragma once

#include "settings/ppd_file.h"
#include "toolbox/menus.h"

namespace kalmo::test {

struct Popup {
    QComboBox widget;
    ControlRef control = ControlFromWidget(&widget);
    MenuRef menu = GetControlPopupMenu(control);

    /// "text=reference" of each item.
    [[nodiscard]] std::vector<std::string> items() const {
        std::vector<std::string> items;
        for (UInt16 item = 1; item <= CountMenuItems(menu); ++item) {
            ItemReference reference = 0;
            GetMenuItemRefCon(menu, item, &reference);
            items.push_back(TakeText(CopyMenuItemTextAsCFString(menu, item)) + "=" +
                            std::to_string(reference));
        }
        return items;
    }
};

using Items = std::vector<std::string>;

}  // namespace kalmo::test
