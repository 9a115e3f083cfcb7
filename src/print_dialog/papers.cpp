#include "print_dialog/papers.h"

#include <QRegularExpression>
#include <QString>
#include <algorithm>

#include "foundation/locale.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr double kPointsPerInch = 72;
constexpr double kPointsPerMillimetre = kPointsPerInch / 25.4;
/// Longer paper there is none: 20 m.
constexpr double kLongestSide = 20'000 * kPointsPerMillimetre;

struct UnitRow {
    const char* name;
    double points;
};
constexpr UnitRow kUnits[] = {{"", 1},
                              {"pt", 1},
                              {"in", kPointsPerInch},
                              {"ft", 12 * kPointsPerInch},
                              {"mm", kPointsPerMillimetre},
                              {"cm", 10 * kPointsPerMillimetre},
                              {"m", 1000 * kPointsPerMillimetre}};

std::string Number(double value, int digits) {
    return CFStringToUTF8(
        Owned<CFStringRef>::Adopt(CFLocaleCreateStringFromNumber(value, 0, digits)));
}

std::optional<PPDPaper> TypedPaper(const std::string& choice) {
    static const QRegularExpression form(
        R"(^Custom\.(\d{1,6}(?:\.\d{1,6})?)x(\d{1,6}(?:\.\d{1,6})?)([a-z]*)$)");
    const auto match = form.match(QString::fromStdString(choice));
    const auto unit = std::ranges::find(kUnits, match.captured(3), &UnitRow::name);
    if (!match.hasMatch() || unit == std::end(kUnits)) return std::nullopt;
    const double width = match.captured(1).toDouble() * unit->points;
    const double height = match.captured(2).toDouble() * unit->points;
    if (std::min(width, height) < 1 || std::max(width, height) > kLongestSide) return std::nullopt;
    return PPDPaper{.keyword = choice,
                    .text = PaperSizeText(width, height),
                    .width = width,
                    .height = height,
                    .right = width,
                    .top = height};
}

}  // namespace

std::string PaperSizeText(double width, double height) {
    if (CFLocaleUsesMetricSystem()) {
        return HostText("Summary millimetres", {Number(width / kPointsPerMillimetre, 1),
                                                Number(height / kPointsPerMillimetre, 1)});
    }
    return HostText("Summary inches",
                    {Number(width / kPointsPerInch, 2), Number(height / kPointsPerInch, 2)});
}

std::optional<PPDPaper> FindPaper(const PPDDescription& printer, const std::string& choice) {
    const auto paper = std::ranges::find(printer.papers, choice, &PPDPaper::keyword);
    if (paper != printer.papers.end()) return *paper;
    return printer.customSizes ? TypedPaper(choice) : std::nullopt;
}

}  // namespace kalmo
