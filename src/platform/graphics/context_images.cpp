// Pictures on a page.
#include <cstring>

#include "graphics/context_private.h"
#include "graphics/image_private.h"

namespace {

using kalmo::foundation::As;
using kalmo::graphics::CairoPointer;
using kalmo::graphics::DecodedPicture;
using kalmo::graphics::kImageType;
using kalmo::graphics::OpenPage;
using kalmo::graphics::SurfacePointer;

constexpr double kPixelsPerPoint = 150.0 / 72;

/// The surface may outlive the image (a PDF surface keeps it up to the page's end): it has its own
/// copy of both the pixels and the file.
SurfacePointer SurfaceOf(const DecodedPicture& picture) {
    // What came from a JPEG file has no transparency to look for.
    const cairo_format_t format = picture.jpeg.empty() ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24;
    SurfacePointer surface(
        cairo_image_surface_create(format, picture.pixels.width, picture.pixels.height));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
    cairo_surface_flush(surface.get());
    std::memcpy(cairo_image_surface_get_data(surface.get()), picture.bytes.data(),
                picture.bytes.size());
    cairo_surface_mark_dirty(surface.get());
    if (picture.jpeg.empty()) return surface;
    auto file = std::make_unique<std::string>(picture.jpeg);
    const auto* const bytes = reinterpret_cast<const unsigned char*>(file->data());
    const auto attached = cairo_surface_set_mime_data(
        surface.get(), CAIRO_MIME_TYPE_JPEG, bytes, file->size(),
        [](void* content) { delete static_cast<std::string*>(content); }, file.get());
    if (attached == CAIRO_STATUS_SUCCESS) static_cast<void>(file.release());
    return surface;
}

std::size_t PixelsFor(double points) {
    const double pixels = std::ceil(std::abs(points) * kPixelsPerPoint);
    return static_cast<std::size_t>(std::min(pixels, static_cast<double>(kLongestImageSide)));
}

}  // namespace

void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image) {
    auto* const page = OpenPage(context);
    const auto* const found = As<CGImageObject>(image, kImageType);
    if (!page || !found || !(rect.size.width > 0) || !(rect.size.height > 0)) return;
    const SurfacePointer surface = SurfaceOf(found->picture);
    if (!surface) return;
    cairo_t* const cairo = page->cairo.get();
    cairo_save(cairo);
    cairo_translate(cairo, rect.origin.x, rect.origin.y + rect.size.height);
    cairo_scale(cairo, rect.size.width / found->picture.pixels.width,
                -rect.size.height / found->picture.pixels.height);
    cairo_set_source_surface(cairo, surface.get(), 0, 0);
    cairo_paint_with_alpha(cairo, page->state().alpha);
    cairo_restore(cairo);
}

void CGContextDrawPDFDocument(CGContextRef context, CGRect rect, CGPDFDocumentRef document,
                              std::size_t page) {
    const auto image = Owned<CGImageRef>::Adopt(CGPDFDocumentCreatePageImage(
        document, page, PixelsFor(rect.size.width), PixelsFor(rect.size.height)));
    CGContextDrawImage(context, rect, image);
}
