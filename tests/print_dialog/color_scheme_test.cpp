// Colours that can be told apart, by the usual measure of contrast.
#include "print_dialog/color_scheme.h"

#include <cmath>

#include "support/qt_test.h"

namespace kalmo::test {
namespace {

double Luminance(const QColor& color) {
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) +
           0.0722 * part(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

TEST(ColorSchemes, TextsStandOut) {
    struct Pair {
        QPalette::ColorRole text, ground;
        double least, leastWithContrast;
    };
    constexpr Pair kPairs[] = {
        {QPalette::WindowText, QPalette::Window, 7, 12},
        {QPalette::Text, QPalette::Base, 7, 12},
        {QPalette::ButtonText, QPalette::Button, 7, 12},
        {QPalette::ToolTipText, QPalette::ToolTipBase, 7, 12},
        {QPalette::PlaceholderText, QPalette::Base, 4.5, 7},
        {QPalette::HighlightedText, QPalette::Highlight, 4, 7},
        {QPalette::Link, QPalette::Window, 4.5, 7},
        {QPalette::LinkVisited, QPalette::Window, 4.5, 7},
        {QPalette::Highlight, QPalette::Window, 3, 7},
    };
    for (const Scheme scheme :
         {Scheme::light, Scheme::dark, Scheme::contrast, Scheme::darkContrast}) {
        const QPalette palette = PaletteOf(scheme);
        const bool hasContrast = scheme == Scheme::contrast || scheme == Scheme::darkContrast;
        for (const Pair& pair : kPairs) {
            EXPECT_GE(Contrast(palette.color(pair.text), palette.color(pair.ground)),
                      hasContrast ? pair.leastWithContrast : pair.least)
                << static_cast<int>(scheme) << ": role " << pair.text << " on " << pair.ground;
        }
        EXPECT_GE(Contrast(palette.color(QPalette::Disabled, QPalette::Text),
                           palette.color(QPalette::Base)),
                  hasContrast ? 4.5 : 2.4);
    }
}

}  // namespace
}  // namespace kalmo::test
