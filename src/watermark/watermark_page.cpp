#include "watermark/watermark_page.h"

#include <algorithm>
#include <cmath>

namespace kalmo {
namespace {

constexpr CFIndex kInitialSize = CFIndex{64} << 10;
// What a printer shows of a picture, and the most that a page holds of it: letter paper is just
// full then.
constexpr double kPrintedPixelsPerPoint = 300.0 / 72;
constexpr double kMostPixelsOnPage = 8e6;
// A picture may be many pages large: only what lies on the page goes into the document.
constexpr std::size_t kMostDecodedPixelsOfASide = 4096;

double PrintedPixelsPerPoint(const CGSize& page) {
    return std::min(kPrintedPixelsPerPoint,
                    std::sqrt(kMostPixelsOnPage / (page.width * page.height)));
}

double AlphaOf(const _WatermarkData& record) {
    const bool isText = record.textString[0];
    return isText ? std::clamp(record.density, SInt32{0}, SInt32{100}) / 100.0 : 1;
}

void FillWhite(CGContextRef context, const CGRect& box) {
    CGContextSetRGBFillColor(context, 255, 255, 255, 1);
    CGContextFillRect(context, box);
}

bool LeavesInk(const _WatermarkData& drawn) {
    return drawn.textString[0] ? drawn.glyphCount > 0 : drawn.filename[0] && drawn.scale > 0;
}

}  // namespace

OSStatus DrawWatermarkPage(MemoryConsumerState* state, const CGSize& page, PagePaper paper,
                           _WatermarkData* record, WatermarkPictures* pictures) {
    if (!state || !record) return paramErr;
    const CGRect box{{}, page};
    const auto consumer = CreateConsumer(*state);
    const auto context = Owned<CGContextRef>::Adopt(CGPDFContextCreate(consumer, &box, nullptr));
    CGContextBeginPage(context, &box);
    if (paper == PagePaper::white) FillWhite(context, box);
    CGContextSetAlpha(context, AlphaOf(*record));
    const OSStatus drawn = DrawWatermarkOnly(context, box, record, pictures);
    CGContextEndPage(context);
    const OSStatus closed = CGPDFContextClose(context);
    return drawn != noErr ? drawn : closed;
}

CFDataRef CopyWatermarkDrawing(_WatermarkData* record, const CGSize& page) {
    if (!record) return nullptr;
    // Glyphs of another drawing would tell of ink that this one may not leave.
    SetWatermarkGlyphs(*record, {});
    WatermarkPictures pictures;
    pictures.limitPixels(kMostDecodedPixelsOfASide, kMostDecodedPixelsOfASide);
    pictures.limitShare(record->scale / 100.0 * PrintedPixelsPerPoint(page));
    MemoryConsumerState state;
    if (CreateMemoryConsumer(kInitialSize, &state) != noErr) return nullptr;
    const bool isWhole =
        DrawWatermarkPage(&state, page, PagePaper::none, record, &pictures) == noErr;
    const CFDataRef document =
        isWhole && LeavesInk(*record)
            ? CFDataCreate(kCFAllocatorDefault, state.block, static_cast<CFIndex>(state.position))
            : nullptr;
    MemoryConsumerReleaseInfo(&state);
    return document;
}

}  // namespace kalmo
