// Drawing onto the pages of a PDF document.
//
// Lengths in pt, y upwards; colour components and alpha from 0 to 1, taken as the nearer end when
// beyond. A context belongs to the thread that made it. After a failure drawing does nothing more
// and closing tells.
#pragma once

#include "graphics/data_stream.h"
#include "graphics/image.h"
#include "graphics/pdf_document.h"

#pragma GCC visibility push(default)

/// A new PDF document on the consumer (retained), with pages of `mediaBox`; letter size when null.
/// It carries no date, so that equal drawings give equal bytes. `information` is not used. Null
/// without a consumer, or for a box that has no area or is no page. The caller releases it.
[[nodiscard]] CGContextRef CGPDFContextCreate(CGDataConsumerRef consumer, const CGRect* mediaBox,
                                              CFDictionaryRef information);
/// Writes the document's end. noErr only when everything was drawn and the consumer took every
/// byte. The last release closes too; closing twice tells the same again.
OSStatus CGPDFContextClose(CGContextRef context);

/// A page begins with black ink, alpha 1, a line width of 1, no clip. What was not restored or
/// ended when the page ends is restored and ended then. `mediaBox` is not used.
void CGContextBeginPage(CGContextRef context, const CGRect* mediaBox);
void CGContextEndPage(CGContextRef context);

/// Matrix, clip, colours, alpha and line width. A restore without its save does nothing.
void CGContextSaveGState(CGContextRef context);
void CGContextRestoreGState(CGContextRef context);
void CGContextTranslateCTM(CGContextRef context, CGFloat x, CGFloat y);
/// Neither factor may be 0.
void CGContextScaleCTM(CGContextRef context, CGFloat x, CGFloat y);
/// Radians, counter-clockwise.
void CGContextRotateCTM(CGContextRef context, CGFloat angle);
void CGContextClipToRect(CGContextRef context, CGRect rect);

void CGContextSetRGBFillColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue,
                              CGFloat alpha);
void CGContextSetRGBStrokeColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue,
                                CGFloat alpha);
/// What is drawn from now on is thinned by it, beside its own alpha.
void CGContextSetAlpha(CGContextRef context, CGFloat alpha);
/// What is drawn up to the end is laid over the page as one, thinned by the alpha set before: where
/// its parts overlap, it is no darker. Within the layer alpha begins at 1 again.
void CGContextBeginTransparencyLayer(CGContextRef context, CFDictionaryRef information);
void CGContextEndTransparencyLayer(CGContextRef context);

void CGContextFillRect(CGContextRef context, CGRect rect);
void CGContextStrokeRectWithWidth(CGContextRef context, CGRect rect, CGFloat width);
/// What lies beyond the page or the clip does not go into the document.
void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image);
/// Page 1 is the first. The page goes in as pixels, 150 to the inch.
void CGContextDrawPDFDocument(CGContextRef context, CGRect rect, CGPDFDocumentRef document,
                              std::size_t page);

#pragma GCC visibility pop
