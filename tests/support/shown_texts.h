// What a window says, to the eyes and to assistive technology.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace kalmo::test {

struct ShownText {
    std::string where;
    QString text;
};

/// Every text of the window and of what is in it, shown or not: titles, labels, buttons, tabs,
/// columns, the items of menus and lists, hints in empty fields, tips, and the names and
/// descriptions for assistive technology. Not what people type.
[[nodiscard]] std::vector<ShownText> ShownTexts(QWidget& window);

}  // namespace kalmo::test
