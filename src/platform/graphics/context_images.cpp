// Pictures on a page.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "graphics/context_private.h"
#include "graphics/image_private.h"

namespace {

using kalmo::foundation::As;
using kalmo::graphics::CairoPointer;
using kalmo::graphics::DecodedPicture;
using kalmo::graphics::kImageType;
using kalmo::graphics::OpenPage;
using kalmo::graphics::PicturePart;
using kalmo::graphics::PixelSize;
using kalmo::graphics::SurfacePointer;

constexpr double kPixelsPerPoint = 150.0 / 72;
constexpr std::size_t kBytesPerPixel = 4;

/// What can be seen through the clip, where a unit of the context is a pixel. One pixel more on
/// each side, so that the edges blend as they would with the rest.
PicturePart VisiblePart(cairo_t* cairo, const DecodedPicture& picture) {
    double left = 0, top = 0, right = 0, bottom = 0;
    cairo_clip_extents(cairo, &left, &top, &right, &bottom);
    const auto within = [](double pixel, int most) {
        return pixel > 0 ? static_cast<int>(std::min(pixel, static_cast<double>(most))) : 0;
    };
    const auto [width, height] = picture.pixels;
    return {within(std::floor(left) - 1, width), within(std::floor(top) - 1, height),
            within(std::ceil(right) + 1, width), within(std::ceil(bottom) + 1, height)};
}

/// Null when there is no memory.
std::shared_ptr<const std::string> FileOf(cairo_surface_t* surface) {
    const PixelSize size{cairo_image_surface_get_width(surface),
                         cairo_image_surface_get_height(surface)};
    std::string bytes = kalmo::graphics::JpegOf(
        cairo_image_surface_get_data(surface),
        static_cast<std::size_t>(cairo_image_surface_get_stride(surface)), size);
    return bytes.empty() ? nullptr : std::make_shared<const std::string>(std::move(bytes));
}

/// The surface keeps its own share of the file.
void Attach(cairo_surface_t* surface, std::shared_ptr<const std::string> file) {
    using Share = std::shared_ptr<const std::string>;
    auto share = std::make_unique<Share>(std::move(file));
    const auto* const bytes = reinterpret_cast<const unsigned char*>((*share)->data());
    const auto attached = cairo_surface_set_mime_data(
        surface, CAIRO_MIME_TYPE_JPEG, bytes, (*share)->size(),
        [](void* content) { delete static_cast<Share*>(content); }, share.get());
    if (attached == CAIRO_STATUS_SUCCESS) static_cast<void>(share.release());
}

/// A copy: it may outlive the picture (a PDF surface keeps it up to the page's end).
SurfacePointer CopyOf(const DecodedPicture& picture, const PicturePart& part) {
    const cairo_format_t format = picture.isPhotograph ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32;
    SurfacePointer surface(cairo_image_surface_create(format, part.width(), part.height()));
    unsigned char* row = cairo_image_surface_get_data(surface.get());
    if (!row) return nullptr;
    cairo_surface_flush(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    for (int y = part.top; y < part.bottom; ++y, row += stride) {
        const std::size_t pixel =
            static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.pixels.width) +
            static_cast<std::size_t>(part.left);
        std::memcpy(row, picture.bytes.data() + pixel * kBytesPerPixel,
                    static_cast<std::size_t>(part.width()) * kBytesPerPixel);
    }
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

SurfacePointer SurfaceOf(const CGImageObject& image, const PicturePart& part) {
    SurfacePointer surface = CopyOf(image.picture, part);
    if (!surface || !image.picture.isPhotograph) return surface;
    if (!image.lastDrawn.bytes || image.lastDrawn.part != part)
        image.lastDrawn = {part, FileOf(surface.get())};
    if (image.lastDrawn.bytes) Attach(surface.get(), image.lastDrawn.bytes);
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
    const DecodedPicture& picture = found->picture;
    cairo_t* const cairo = page->cairo.get();
    cairo_save(cairo);
    cairo_translate(cairo, rect.origin.x, rect.origin.y + rect.size.height);
    cairo_scale(cairo, rect.size.width / picture.pixels.width,
                -rect.size.height / picture.pixels.height);
    const PicturePart part = VisiblePart(cairo, picture);
    const bool isVisible = part.width() > 0 && part.height() > 0;
    if (const auto surface = isVisible ? SurfaceOf(*found, part) : nullptr) {
        cairo_set_source_surface(cairo, surface.get(), part.left, part.top);
        cairo_paint_with_alpha(cairo, page->state().alpha);
    }
    cairo_restore(cairo);
}

void CGContextDrawPDFDocument(CGContextRef context, CGRect rect, CGPDFDocumentRef document,
                              std::size_t page) {
    const auto image = Owned<CGImageRef>::Adopt(CGPDFDocumentCreatePageImage(
        document, page, PixelsFor(rect.size.width), PixelsFor(rect.size.height)));
    CGContextDrawImage(context, rect, image);
}
