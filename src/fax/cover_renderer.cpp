#include "fax/cover_renderer.h"

#include <algorithm>

namespace kalmo {
namespace {

constexpr double kMargin = 31;
constexpr double kAboveFirstLine = 72;
constexpr Fixed kBetweenSections = 12 * kFixedOne;
constexpr Fixed kTextSize = 12 * kFixedOne;
constexpr Float32 kNearBlack = 255.0F / 65535;
// Far more than a page shows, little enough to be copied at each keystroke: notes have no limit.
constexpr CFIndex kMostUnitsOfText = CFIndex{1} << 16;

// Made once and kept: covers are drawn on a thread that lives as long as the program. A layout
// belongs to one thread, so that any other thread that draws one has four of its own up to its end.
thread_local Owned<ATSUStyle> gDefaultStyle, gLabelStyle;
thread_local Owned<ATSUTextLayout> gDefaultLayout, gLabelLayout;

constexpr ATSULayoutControls ControlsFor(CGContextRef context) {
    return {.flushFactor = 0,
            .justificationFactor = 0,
            .lineOptions = kATSLineLastNoJustification,
            .context = context};
}

void CreateStyleAndLayout(Boolean bold, Owned<ATSUStyle>& style, Owned<ATSUTextLayout>& layout) {
    if (style) return;
    ATSUCreateStyle(style.adopt());
    ATSUSetAttributes(style,
                      {.size = kTextSize,
                       .bold = bold,
                       .color = {.red = kNearBlack, .green = kNearBlack, .blue = kNearBlack}});
    ATSUCreateTextLayout(layout.adopt());
}

void CreateStylesAndLayouts() {
    CreateStyleAndLayout(false, gDefaultStyle, gDefaultLayout);
    CreateStyleAndLayout(true, gLabelStyle, gLabelLayout);
}

CGRect TextBoxOf(const CGRect& page) {
    return CGRectMake(page.origin.x + kMargin, page.origin.y + kMargin,
                      page.size.width - 2 * kMargin, page.size.height - 2 * kMargin);
}

bool IsGiven(CFStringRef text) { return CFStringGetLength(text) > 0; }

struct Writer {
    CGContextRef context;
    const CGRect& box;
    Fixed *penX, *penY;

    void write(CFStringRef text, ATSUStyle style, ATSUTextLayout layout) const {
        if (!IsGiven(text)) return;
        const CFIndex count = std::min(CFStringGetLength(text), kMostUnitsOfText);
        std::u16string units(static_cast<std::size_t>(count), u'\0');
        CFStringGetCharacters(text, {0, count}, units.data());
        const auto length = static_cast<UInt32>(count);
        ATSUSetTextPointerLocation(layout, units.data(), length);
        ATSUSetRunStyle(layout, style);
        ATSUSetLayoutControls(layout, ControlsFor(context));
        RenderWrappingText(layout, box, length, penX, penY, FloatToFixed(box.size.width));
        // The layout lives longer than the page.
        ATSUSetLayoutControls(layout, ControlsFor(nullptr));
    }

    void writeSection(const CoverSection& section) const {
        CreateStylesAndLayouts();
        write(section.label, gLabelStyle, gLabelLayout);
        write(section.text, gDefaultStyle, gDefaultLayout);
    }
};

/// Over the texts, thinned as one.
OSStatus DrawImage(CGContextRef context, const CGRect& page, _WatermarkData* image,
                   WatermarkPictures* pictures) {
    if (!image) return noErr;
    CGContextSetAlpha(context, std::clamp(image->density, SInt32{0}, SInt32{100}) / 100.0);
    CGContextBeginTransparencyLayer(context, nullptr);
    // A text is kept among the print watermarks, too, as its printing needs it there. That costs a
    // keystroke little: an entry that would not change is left alone, and nobody waits for the
    // disk.
    const OSStatus drawn = DrawWatermark(context, page, image, pictures);
    CGContextEndTransparencyLayer(context);
    return drawn;
}

}  // namespace

OSStatus DrawFaxCover(CGDataConsumerRef consumer, const CGRect& pageRect,
                      const CoverSection& sender, const CoverSection& recipients,
                      const CoverSection& notes, _WatermarkData* watermark,
                      WatermarkPictures* pictures) {
    CreateStylesAndLayouts();
    const CGRect box = TextBoxOf(pageRect);
    Fixed penX = FloatToFixed(box.origin.x);
    Fixed penY = FloatToFixed(box.origin.y + box.size.height - kAboveFirstLine);
    const auto context =
        Owned<CGContextRef>::Adopt(CGPDFContextCreate(consumer, &pageRect, nullptr));
    CGContextBeginPage(context, &pageRect);
    CGContextSetRGBFillColor(context, 1, 1, 1, 1);
    CGContextFillRect(context, pageRect);
    if (IsGiven(sender.text)) {
        DrawFaxCoverSender(context, box, &penX, &penY, sender);
        penY = FixedAdd(penY, -kBetweenSections);
    }
    if (IsGiven(recipients.text)) {
        DrawFaxCoverRecipients(context, box, &penX, &penY, recipients);
        penY = FixedAdd(penY, -kBetweenSections);
    }
    if (IsGiven(notes.text)) DrawFaxCoverNotes(context, box, &penX, &penY, notes);
    const OSStatus drawn = DrawImage(context, pageRect, watermark, pictures);
    CGContextEndPage(context);
    const OSStatus closed = CGPDFContextClose(context);
    return closed != noErr ? closed : drawn;
}

void DrawFaxCoverSender(CGContextRef context, const CGRect& textBox, Fixed* penX, Fixed* penY,
                        const CoverSection& section) {
    Writer{context, textBox, penX, penY}.writeSection(section);
}

void DrawFaxCoverRecipients(CGContextRef context, const CGRect& textBox, Fixed* penX, Fixed* penY,
                            const CoverSection& section) {
    Writer{context, textBox, penX, penY}.writeSection(section);
}

void DrawFaxCoverNotes(CGContextRef context, const CGRect& textBox, Fixed* penX, Fixed* penY,
                       const CoverSection& section) {
    Writer{context, textBox, penX, penY}.writeSection(section);
}

void RenderWrappingText(ATSUTextLayout layout, const CGRect& box, UInt32 textLength, Fixed* penX,
                        Fixed* penY, Fixed lineWidth) {
    const Fixed bottom = FloatToFixed(box.origin.y);
    for (UInt32 start = 0, next = 0; start < textLength; start = next) {
        ATSUGlyphBounds line;
        if (ATSUBreakLine(layout, start, lineWidth, &next) != noErr || next <= start) return;
        if (ATSUGetGlyphBounds(layout, start, next - start, &line) != noErr) return;
        *penX = FloatToFixed(box.origin.x);
        *penY = FixedAdd(*penY, -line.ascent);
        if (FixedAdd(*penY, -line.descent) < bottom) return;
        ATSUDrawText(layout, start, next - start, *penX, *penY);
        *penY = FixedAdd(*penY, -line.descent);
    }
}

}  // namespace kalmo
