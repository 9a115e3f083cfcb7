// What the editor lets a watermark's numbers be.
#pragma once

#include "graphics/geometry.h"
#include "watermark/watermark_data.h"

namespace kalmo {

struct WatermarkNumber {
    SInt32 _WatermarkData::*field;
    SInt32 minimum, maximum;
};
inline constexpr WatermarkNumber kFontSizeRange{&_WatermarkData::fontSize, 1, 999},
    kAngleRange{&_WatermarkData::angle, -180, 180}, kDensityRange{&_WatermarkData::density, 0, 100},
    kScaleRange{&_WatermarkData::scale, 1, 400};

/// A record's `units` are 0 (tenths of an inch) or 1 (millimetres).
inline constexpr SInt32 kOffsetUnitsCount = 2;
/// Half of a page's side, given in pt: the farthest offset, either way, in inches.
[[nodiscard]] double FarthestOffset(double length);

/// The record's page in pt, the usual one for a record without one.
[[nodiscard]] CGSize PageOf(const _WatermarkData& record);
/// Brings what a store may hold into the ranges: numbers to their ends, an angle to the same
/// direction, offsets within half the record's page, a missing font to the usual one.
void SettleWatermark(_WatermarkData& record);

}  // namespace kalmo
