#include "print_dialog/color_options.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace kalmo {
namespace {

constexpr const char* kColorOptions[] = {"KLMColor", "ColorModel"};
/// Choices of a colour option that print in black, whoever made the printer.
constexpr std::array<std::string_view, 6> kGreyChoices = {"BW",    "Gray", "Grayscale",
                                                          "KGray", "Mono", "Black"};

}  // namespace

const PPDOptionTexts* FindOption(const PPDDescription& printer, std::string_view keyword) {
    const auto found = std::ranges::find(printer.options, keyword, &PPDOptionTexts::keyword);
    return found == printer.options.end() || found->choices.empty() ? nullptr : &*found;
}

std::string ColorOption(const PPDDescription& printer) {
    const auto* found = std::ranges::find_if(
        kColorOptions, [&](const char* name) { return FindOption(printer, name); });
    return found == std::end(kColorOptions) ? std::string() : *found;
}

bool IsGreyChoice(std::string_view choice) {
    return std::ranges::find(kGreyChoices, choice) != kGreyChoices.end();
}

std::string ColorModeFor(const PPDDescription& printer, std::string_view choice) {
    const PPDOptionTexts* const mode = FindOption(printer, kColorModeOption);
    if (!mode || choice.empty()) return {};
    const auto agrees = [grey = IsGreyChoice(choice)](const PPDChoiceText& other) {
        return IsGreyChoice(other.keyword) == grey;
    };
    const auto found = std::ranges::find_if(mode->choices, agrees);
    return found == mode->choices.end() ? std::string() : found->keyword;
}

}  // namespace kalmo
