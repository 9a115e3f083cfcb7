// What every window owes to people who do not use it with mouse and eyes.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace kalmo::test {

/// Controls of interface files are found by identity; those that a program makes itself need none.
enum class Identities { needed, notNeeded };

/// One line for each control in `window`, shown or not, that has no name for assistive technology,
/// no place in the tab order, or no identity.
[[nodiscard]] std::vector<std::string> WindowFaults(QWidget& window, Identities identities);
/// One line for each label, button or check box that is narrower or lower than its text needs, in a
/// window that is laid out.
[[nodiscard]] std::vector<std::string> CutTexts(QWidget& window);

}  // namespace kalmo::test
