// Owning pointers to what cairo, pango and fontconfig count. Private to the graphics folder.
#pragma once

#include <cairo.h>
#include <fontconfig/fontconfig.h>
#include <pango/pango.h>

#include <memory>

namespace kalmo::graphics {

struct CairoDeleter {
    void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};
using CairoPointer = std::unique_ptr<cairo_t, CairoDeleter>;
using SurfacePointer = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using FontOptionsPointer = std::unique_ptr<cairo_font_options_t, CairoDeleter>;

struct PangoDeleter {
    void operator()(PangoContext* context) const { g_object_unref(context); }
    void operator()(PangoLayout* layout) const { g_object_unref(layout); }
    void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
    void operator()(PangoAttrList* attributes) const { pango_attr_list_unref(attributes); }
    void operator()(PangoLayoutIter* place) const { pango_layout_iter_free(place); }
};
using PangoContextPointer = std::unique_ptr<PangoContext, PangoDeleter>;
using PangoLayoutPointer = std::unique_ptr<PangoLayout, PangoDeleter>;
using PangoFontPointer = std::unique_ptr<PangoFontDescription, PangoDeleter>;
using PangoLayoutIterPointer = std::unique_ptr<PangoLayoutIter, PangoDeleter>;

struct FontconfigDeleter {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};
using FontPatternPointer = std::unique_ptr<FcPattern, FontconfigDeleter>;
using FontObjectsPointer = std::unique_ptr<FcObjectSet, FontconfigDeleter>;
using FontSetPointer = std::unique_ptr<FcFontSet, FontconfigDeleter>;

}  // namespace kalmo::graphics
