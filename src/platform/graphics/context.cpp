#include "graphics/context.h"

#include <cairo-pdf.h>

#include "graphics/context_private.h"
#include "graphics/data_stream_private.h"

using kalmo::foundation::As;
using kalmo::foundation::TypeRecord;
using kalmo::graphics::Ink;
using kalmo::graphics::kContextType;
using kalmo::graphics::OpenPage;
using Opened = kalmo::graphics::DrawingState::Opened;

namespace {

constexpr CGRect kLetter{{0, 0}, {612, 792}};
// The largest page that a PDF file may have without a unit of its own.
constexpr double kLongestPageSide = 14400;

/// What is no number is 0: cairo would write it into the document.
double Unit(double component) { return component > 0 ? std::min(component, 1.0) : 0; }

bool IsPage(const CGRect& box) {
    const auto fits = [](double side) { return side > 0 && side <= kLongestPageSide; };
    return fits(box.size.width) && fits(box.size.height) && std::isfinite(box.origin.x) &&
           std::isfinite(box.origin.y);
}

cairo_status_t WriteToConsumer(void* consumer, const unsigned char* bytes, unsigned count) {
    return kalmo::graphics::Consume(static_cast<CGDataConsumerRef>(consumer), bytes, count)
               ? CAIRO_STATUS_SUCCESS
               : CAIRO_STATUS_WRITE_ERROR;
}

void AddRect(cairo_t* cairo, const CGRect& rect) {
    cairo_rectangle(cairo, rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
}

}  // namespace

const TypeRecord kalmo::graphics::kContextType{"context", nullptr, nullptr, nullptr};

CGContextObject::CGContextObject(CGDataConsumerRef target, const CGRect& mediaBox)
    : Object(kContextType), consumer(Owned<CGDataConsumerRef>::Retain(target)), box(mediaBox) {
    kalmo::graphics::BeginConsuming(target);
    surface.reset(cairo_pdf_surface_create_for_stream(WriteToConsumer, target, box.size.width,
                                                      box.size.height));
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, "");
    cairo.reset(cairo_create(surface.get()));
}

void CGContextObject::beginPage() {
    if (onPage() || closed) return;
    save(Opened::Page);
    cairo_translate(cairo.get(), -box.origin.x, box.size.height + box.origin.y);
    cairo_scale(cairo.get(), 1, -1);
    cairo_set_line_width(cairo.get(), 1);
}

void CGContextObject::endPage() {
    if (!onPage()) return;
    while (onPage()) takeBack();
    cairo_show_page(cairo.get());
}

void CGContextObject::save(Opened opened) {
    kalmo::graphics::DrawingState next = onPage() ? state() : kalmo::graphics::DrawingState{};
    next.opened = opened;
    if (opened == Opened::Layer) next.alpha = 1;
    cairo_save(cairo.get());
    if (opened == Opened::Layer) cairo_push_group(cairo.get());
    states.push_back(next);
}

void CGContextObject::takeBack() {
    const bool wasLayer = state().opened == Opened::Layer;
    states.pop_back();
    if (wasLayer) {
        cairo_pop_group_to_source(cairo.get());
        cairo_paint_with_alpha(cairo.get(), state().alpha);
    }
    cairo_restore(cairo.get());
}

OSStatus CGContextObject::close() {
    if (closed) return result;
    endPage();
    closed = true;
    const cairo_status_t drawn = cairo_status(cairo.get());
    cairo_surface_finish(surface.get());
    const bool written = cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS &&
                         !CGDataConsumerHasFailed(consumer);
    if (drawn != CAIRO_STATUS_SUCCESS) result = paramErr;
    // cairo keeps no note of most refused writes; the consumer does.
    if (!written) result = ioErr;
    return result;
}

void CGContextObject::use(const Ink& ink) {
    cairo_set_source_rgba(cairo.get(), Unit(ink.red), Unit(ink.green), Unit(ink.blue),
                          Unit(ink.alpha) * state().alpha);
}

CGContextObject* kalmo::graphics::OpenPage(CGContextRef context) {
    auto* const found = As<CGContextObject>(context, kContextType);
    return found && found->onPage() ? found : nullptr;
}

CGContextRef CGPDFContextCreate(CGDataConsumerRef consumer, const CGRect* mediaBox,
                                CFDictionaryRef) {
    const CGRect box = mediaBox ? *mediaBox : kLetter;
    return consumer && IsPage(box) ? new CGContextObject(consumer, box) : nullptr;
}

OSStatus CGPDFContextClose(CGContextRef context) {
    auto* const found = As<CGContextObject>(context, kContextType);
    return found ? found->close() : paramErr;
}

void CGContextBeginPage(CGContextRef context, const CGRect*) {
    if (auto* const found = As<CGContextObject>(context, kContextType)) found->beginPage();
}

void CGContextEndPage(CGContextRef context) {
    if (auto* const page = OpenPage(context)) page->endPage();
}

void CGContextSaveGState(CGContextRef context) {
    if (auto* const page = OpenPage(context)) page->save(Opened::Save);
}

void CGContextRestoreGState(CGContextRef context) {
    auto* const page = OpenPage(context);
    if (page && page->state().opened == Opened::Save) page->takeBack();
}

void CGContextTranslateCTM(CGContextRef context, CGFloat x, CGFloat y) {
    if (auto* const page = OpenPage(context)) cairo_translate(page->cairo.get(), x, y);
}

void CGContextScaleCTM(CGContextRef context, CGFloat x, CGFloat y) {
    if (auto* const page = OpenPage(context)) cairo_scale(page->cairo.get(), x, y);
}

void CGContextRotateCTM(CGContextRef context, CGFloat angle) {
    if (auto* const page = OpenPage(context)) cairo_rotate(page->cairo.get(), angle);
}

void CGContextClipToRect(CGContextRef context, CGRect rect) {
    auto* const page = OpenPage(context);
    if (!page) return;
    AddRect(page->cairo.get(), rect);
    cairo_clip(page->cairo.get());
}

void CGContextSetRGBFillColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue,
                              CGFloat alpha) {
    auto* const page = OpenPage(context);
    if (page) page->state().fill = {red, green, blue, alpha};
}

void CGContextSetRGBStrokeColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue,
                                CGFloat alpha) {
    auto* const page = OpenPage(context);
    if (page) page->state().stroke = {red, green, blue, alpha};
}

void CGContextSetAlpha(CGContextRef context, CGFloat alpha) {
    if (auto* const page = OpenPage(context)) page->state().alpha = Unit(alpha);
}

void CGContextBeginTransparencyLayer(CGContextRef context, CFDictionaryRef) {
    if (auto* const page = OpenPage(context)) page->save(Opened::Layer);
}

void CGContextEndTransparencyLayer(CGContextRef context) {
    auto* const page = OpenPage(context);
    if (!page) return;
    const auto isLayer = [](const auto& state) { return state.opened == Opened::Layer; };
    const auto layers = std::ranges::count_if(page->states, isLayer);
    while (std::ranges::count_if(page->states, isLayer) == layers && layers) page->takeBack();
}

void CGContextFillRect(CGContextRef context, CGRect rect) {
    auto* const page = OpenPage(context);
    if (!page) return;
    page->use(page->state().fill);
    AddRect(page->cairo.get(), rect);
    cairo_fill(page->cairo.get());
}

void CGContextStrokeRectWithWidth(CGContextRef context, CGRect rect, CGFloat width) {
    auto* const page = OpenPage(context);
    if (!page) return;
    page->use(page->state().stroke);
    cairo_set_line_width(page->cairo.get(), width);
    AddRect(page->cairo.get(), rect);
    cairo_stroke(page->cairo.get());
}
