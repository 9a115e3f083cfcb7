#include "watermark/watermark_limits.h"

#include <algorithm>
#include <cmath>

#include "watermark/watermark_page.h"

namespace kalmo {
namespace {

constexpr double kPointsPerInch = 72;
constexpr SInt32 kHalfTurn = 180, kTurn = 360;
/// No page is longer, in pt.
constexpr double kLongestPage = 14400;

double LengthOf(double length, double usual) {
    return length >= 1 && length <= kLongestPage ? length : usual;
}

/// The same direction, -180 to 180.
SInt32 Reduced(SInt32 angle) {
    const SInt32 part = angle % kTurn;
    if (part > kHalfTurn) return part - kTurn;
    return part < -kHalfTurn ? part + kTurn : part;
}

float Held(float offset, double length) {
    const auto most = static_cast<float>(FarthestOffset(length));
    return std::isnan(offset) ? 0 : std::clamp(offset, -most, most);
}

}  // namespace

double FarthestOffset(double length) { return length / 2 / kPointsPerInch; }

CGSize PageOf(const _WatermarkData& record) {
    return {LengthOf(record.pageWidth, kDefaultWatermarkPage.width),
            LengthOf(record.pageHeight, kDefaultWatermarkPage.height)};
}

void SettleWatermark(_WatermarkData& record) {
    for (const std::span<char> text : {std::span<char>(record.textString),
                                       {record.filename},
                                       {record.filePath},
                                       {record.fontName}})
        text.back() = '\0';
    record.angle = Reduced(record.angle);
    for (const auto& [field, minimum, maximum] :
         {kFontSizeRange, kAngleRange, kDensityRange, kScaleRange})
        record.*field = std::clamp(record.*field, minimum, maximum);
    if (record.units < 0 || record.units >= kOffsetUnitsCount) record.units = 0;
    const CGSize page = PageOf(record);
    record.xOffset = Held(record.xOffset, page.width);
    record.yOffset = Held(record.yOffset, page.height);
    if (!record.fontName[0]) SetWatermarkText(record.fontName, CFSTR("ArialMT"));
}

}  // namespace kalmo
