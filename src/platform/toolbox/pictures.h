// Pictures from files, drawn crisply at any scale inside a draw event.
#pragma once

#include "foundation/url.h"
#include "graphics/image.h"
#include "kalmo/statuses.h"
#include "toolbox/events.h"

#pragma GCC visibility push(default)

/// An SVG, PNG, GIF or ICNS file. Null when it is missing or no picture. DisposePicture frees it.
[[nodiscard]] PictureRef CreatePictureFromURL(CFURLRef url);
void DisposePicture(PictureRef picture);
void GetPictureSize(PictureRef picture, SInt32* width, SInt32* height);
/// Scaled to fit `bounds` (pixels of the drawn control, without the display's scale), proportions
/// kept, centred.
OSStatus DrawPictureInRect(DrawingRef drawing, PictureRef picture, const Rect& bounds);

/// Fills `bounds` with the image's pixels: each one sharp when they are the sides of `bounds` times
/// the control's scale, rounded, and smoothed otherwise.
OSStatus DrawImageInRect(DrawingRef drawing, CGImageRef image, const Rect& bounds);
/// A line around `bounds`, just inside, that is seen on white and on the theme's ground.
OSStatus FrameRect(DrawingRef drawing, const Rect& bounds);
/// The inner half of a black line along the edge of `bounds`; `width` in pixels of the control.
OSStatus StrokeRect(DrawingRef drawing, const Rect& bounds, double width);
/// How many pixels of its screen make one pixel of the control; 1 for null.
[[nodiscard]] double GetControlScale(ControlRef control);

#pragma GCC visibility pop
