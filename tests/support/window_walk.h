// What every window owes to people who do not use it with mouse and eyes.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

namespace kalmo::test {

/// Whether people use it with mouse or keys.
[[nodiscard]] bool IsControl(const QWidget& widget);

/// Controls of interface files are found by identity; those that a program makes itself need none.
enum class Identities { needed, notNeeded };

/// One line for each control in `window`, shown or not, that has no name for assistive technology,
/// no place in the tab order, or no identity.
[[nodiscard]] std::vector<std::string> WindowFaults(QWidget& window, Identities identities);
/// One line for each time that the Tab key leads back: neither further down nor on into another
/// column of a window that is laid out.
[[nodiscard]] std::vector<std::string> TabJumps(QWidget& window);
/// One line for each label, button or check box that is narrower or lower than its text needs, in a
/// window that is laid out.
[[nodiscard]] std::vector<std::string> CutTexts(QWidget& window);
/// Once for each tab of the window, with its page in front; once for a window without tabs.
void ForEachFront(QWidget& window, const std::function<void()>& visit);
/// The texts of tabs, labels, buttons and check boxes that have a letter of their own, without
/// those on pages behind the one in front.
[[nodiscard]] std::vector<std::string> MnemonicTexts(QWidget& window);
/// One line for each letter that stands for two of the texts.
[[nodiscard]] std::vector<std::string> RepeatedMnemonics(const std::vector<std::string>& texts);

}  // namespace kalmo::test
