// The job's watermark, as it travels in the ticket: everything a filter needs to draw it.
//
// It is one dictionary, kept whole, so that what this version does not know stays in it.
#pragma once

#include "printing/ticket.h"
#include "watermark/watermark_page.h"

namespace kalmo {

/// Values of WatermarkOptionsMap: whether the watermark lies under, blends with or lies over the
/// page, and on which pages it lies.
inline constexpr SInt32 kWatermarkBackground = 1, kWatermarkBlend = 2, kWatermarkForeground = 3;
inline constexpr SInt32 kWatermarkOnAllPages = 4, kWatermarkOnPage1Only = 5;

class WatermarkChoice final {
public:
    /// Takes over what the ticket has; without a name and a record that is none. False when it is
    /// the same watermark as before, which then stays, with the drawing it has now.
    bool read(PMTicketRef ticket);
    OSStatus write(PMTicketRef ticket) const;

    [[nodiscard]] bool isNone() const { return !settings_; }
    void clear();
    /// The layer and the pages of the watermark before stay.
    void choose(CFStringRef name, const _WatermarkData& record);

    /// Null for none; lent.
    [[nodiscard]] CFStringRef name() const;
    [[nodiscard]] SInt32 layer() const;
    [[nodiscard]] SInt32 pages() const;
    /// One of the five values above; others, and none, change nothing.
    void setOption(SInt32 value);
    /// Clears the record, then reads what is chosen into it, with its text mode.
    void load(_WatermarkData* record) const;

    /// Whether it has no drawing for that page.
    [[nodiscard]] bool lacksDrawing(const CGSize& page) const;
    /// Keeps the drawing (null: there is none) and the glyphs and place that came with it.
    void setDrawing(CFDataRef drawing, const CGSize& page, const _WatermarkData& drawn);
    /// Whether the record was drawn from what is chosen now: all but glyphs and place are equal.
    [[nodiscard]] bool isDrawnAs(const _WatermarkData& drawn) const;
    /// Keeps the glyphs and the place of a drawing.
    void keepLayout(const _WatermarkData& drawn);

private:
    [[nodiscard]] CFDictionaryRef record() const;
    [[nodiscard]] bool isSameAs(const WatermarkChoice& other) const;
    [[nodiscard]] SInt32 number(CFStringRef key, SInt32 least, SInt32 most) const;

    Owned<CFMutableDictionaryRef> settings_;  // null: none
};

}  // namespace kalmo
