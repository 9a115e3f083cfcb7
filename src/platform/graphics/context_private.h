// What text drawing asks of a context. Private to the graphics folder.
#pragma once

#include <vector>

#include "foundation/object_private.h"
#include "graphics/cairo_pointers.h"
#include "graphics/context.h"

namespace kalmo::graphics {

extern const kalmo::foundation::TypeRecord kContextType;

struct Ink {
    double red = 0, green = 0, blue = 0, alpha = 1;
};

/// What a save keeps beside cairo's own state.
struct DrawingState {
    enum class Opened { Page, Save, Layer };
    Opened opened;
    Ink fill, stroke;
    double alpha = 1;
};

}  // namespace kalmo::graphics

struct CGContextObject final : kalmo::foundation::Object {
    CGContextObject(CGDataConsumerRef target, const CGRect& mediaBox);
    ~CGContextObject() override { close(); }

    void beginPage();
    void endPage();
    void save(kalmo::graphics::DrawingState::Opened opened);
    /// Takes back the innermost save or layer.
    void takeBack();
    OSStatus close();
    /// The colour, thinned by the context's alpha, becomes cairo's source.
    void use(const kalmo::graphics::Ink& ink);
    [[nodiscard]] kalmo::graphics::DrawingState& state() { return states.back(); }
    [[nodiscard]] bool onPage() const { return !states.empty(); }

    Owned<CGDataConsumerRef> consumer;
    CGRect box;
    kalmo::graphics::SurfacePointer surface;
    kalmo::graphics::CairoPointer cairo;
    std::vector<kalmo::graphics::DrawingState> states;  // empty between the pages
    bool closed = false;
    OSStatus result = noErr;
};

namespace kalmo::graphics {

/// Null unless a page is open: nothing is drawn between pages.
[[nodiscard]] CGContextObject* OpenPage(CGContextRef context);

}  // namespace kalmo::graphics
