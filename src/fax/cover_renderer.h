// Drawing the cover sheet of a fax as a PDF page.
#pragma once

#include "graphics/text_layout.h"
#include "watermark/watermark_drawing.h"

namespace kalmo {

/// A label and what it stands before; either may be null. Nothing is drawn without a text.
struct CoverSection {
    CFStringRef label = nullptr, text = nullptr;
};

/// One page, from the consumer's first byte; the images decoded before are kept in `pictures` (may
/// be null). noErr when every byte was taken; fnfErr or noCodecErr when that is so for a page whose
/// picture cannot be read and is left out.
OSStatus DrawFaxCover(CGDataConsumerRef consumer, const CGRect& pageRect,
                      const CoverSection& sender, const CoverSection& recipients,
                      const CoverSection& notes, _WatermarkData* watermark,
                      WatermarkPictures* pictures = nullptr);

/// The label, then the text, from the pen on, which moves along.
void DrawFaxCoverSender(CGContextRef context, const CGRect& textBox, Fixed* penX, Fixed* penY,
                        const CoverSection& section);
void DrawFaxCoverRecipients(CGContextRef context, const CGRect& textBox, Fixed* penX, Fixed* penY,
                            const CoverSection& section);
void DrawFaxCoverNotes(CGContextRef context, const CGRect& textBox, Fixed* penX, Fixed* penY,
                       const CoverSection& section);
/// The layout's text, line by line, down to the first line that would reach below the box: that
/// one and all behind it are left out.
void RenderWrappingText(ATSUTextLayout layout, const CGRect& box, UInt32 textLength, Fixed* penX,
                        Fixed* penY, Fixed lineWidth);

}  // namespace kalmo
