// Job options in the user's words.
#pragma once

#include <string>
#include <vector>

#include "printing/ppd_papers.h"

namespace kalmo {

/// The printer's text, else the dialog's own for what the protocol defines, else the name itself.
[[nodiscard]] std::string OptionWords(const std::vector<PPDOptionTexts>& printer,
                                      const std::string& option);
/// The same of an option's choices, one after the other.
[[nodiscard]] std::string ChoiceWords(const std::vector<PPDOptionTexts>& printer,
                                      const std::string& option,
                                      const std::vector<std::string>& choices);

}  // namespace kalmo
