#include "graphics/fonts.h"

#include <pango/pangofc-fontmap.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "graphics/font_names.h"
#include "graphics/fonts_private.h"

namespace kalmo::graphics {
namespace {

struct FontFace {
    PangoFontPointer description;
    std::string postScriptName, family, style;
};

std::string TextOf(FcPattern* pattern, const char* object) {
    FcChar8* text = nullptr;
    const bool found = FcPatternGetString(pattern, object, 0, &text) == FcResultMatch;
    return found ? reinterpret_cast<const char*>(text) : "";
}

int NumberOf(FcPattern* pattern, const char* object) {
    int number = 0;
    FcPatternGetInteger(pattern, object, 0, &number);
    return number;
}

const FcChar8* Text(const std::string& text) {
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

/// All installed fonts that have outlines and the given value (all, for an empty one).
FontSetPointer InstalledFonts(const char* object, const std::string& value) {
    const FontPatternPointer wanted(FcPatternCreate());
    FcPatternAddBool(wanted.get(), FC_OUTLINE, FcTrue);
    if (!value.empty()) FcPatternAddString(wanted.get(), object, Text(value));
    const FontObjectsPointer objects(FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_POSTSCRIPT_NAME,
                                                      FC_WEIGHT, FC_SLANT, FC_WIDTH, FC_FILE,
                                                      FC_INDEX, FC_OUTLINE, FC_VARIABLE, nullptr));
    return FontSetPointer(FcFontList(nullptr, wanted.get(), objects.get()));
}

std::vector<FcPattern*> FontsIn(const FontSetPointer& set) {
    if (!set) return {};
    return {set->fonts, set->fonts + set->nfont};
}

/// Fontconfig always has an answer, so only a list tells whether the font is there.
FontPatternPointer Installed(const std::string& postScriptName) {
    const FontSetPointer set = InstalledFonts(FC_POSTSCRIPT_NAME, postScriptName);
    const auto fonts = FontsIn(set);
    if (fonts.empty()) return nullptr;
    FcPatternReference(fonts.front());
    return FontPatternPointer(fonts.front());
}

FontPatternPointer Substitute(const std::string& postScriptName) {
    const FontNameParts parts = PartsOfPostScriptName(postScriptName);
    const FontPatternPointer wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_FAMILY, Text(parts.family));
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, parts.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(wanted.get(), FC_SLANT, parts.slanted ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(wanted.get(), FC_OUTLINE, FcTrue);
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    return FontPatternPointer(FcFontMatch(nullptr, wanted.get(), &result));
}

FontFace FaceNamed(const std::string& postScriptName) {
    FontPatternPointer font = Installed(postScriptName);
    if (!font) font = Substitute(postScriptName);
    if (!font) return {};
    return {PangoFontPointer(pango_fc_font_description_from_pattern(font.get(), FALSE)),
            TextOf(font.get(), FC_POSTSCRIPT_NAME), TextOf(font.get(), FC_FAMILY),
            TextOf(font.get(), FC_STYLE)};
}

/// Fonts asked for so far; a font's number is its place, counted from 1. None is ever removed.
class FontTable final {
public:
    ATSFontRef find(const std::string& name) {
        const std::lock_guard lock(guard_);
        const auto known = numbers_.find(name);
        if (known != numbers_.end()) return known->second;
        FontFace face = FaceNamed(name);
        if (!face.description) return 0;
        faces_.push_back(std::move(face));
        return numbers_[name] = static_cast<ATSFontRef>(faces_.size());
    }

    /// What `read` makes of the face; `otherwise` for no font.
    template <typename Read, typename Result>
    Result with(ATSFontRef font, Read read, Result otherwise) {
        const std::lock_guard lock(guard_);
        return font == 0 || font > faces_.size() ? std::move(otherwise) : read(faces_[font - 1]);
    }

private:
    std::mutex guard_;
    std::map<std::string, ATSFontRef> numbers_;
    std::vector<FontFace> faces_;
};

/// Never freed: a worker may still draw when the process ends.
FontTable& Fonts() {
    static auto& table = *new FontTable;
    return table;
}

CFStringRef CopyText(ATSFontRef font, std::string FontFace::*text) {
    return Fonts().with(
        font, [text](const FontFace& face) { return CFStringCreateFromUTF8(face.*text); },
        CFStringRef{});
}

template <typename Texts>
CFArrayRef ArrayOf(const Texts& texts) {
    auto array = Owned<CFMutableArrayRef>::Adopt(
        CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks));
    for (const std::string& text : texts) {
        const auto value = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(text));
        CFArrayAppendValue(array, value.get());
    }
    return array.detach();
}

}  // namespace

PangoFontPointer DescriptionOf(ATSFontRef font) {
    return Fonts().with(
        font,
        [](const FontFace& face) {
            return PangoFontPointer(pango_font_description_copy(face.description.get()));
        },
        PangoFontPointer(pango_font_description_from_string("sans-serif")));
}

}  // namespace kalmo::graphics

using namespace kalmo::graphics;

ATSFontRef ATSFontFindFromPostScriptName(CFStringRef name, UInt32) {
    const std::string wanted = CFStringToUTF8(name);
    return wanted.empty() ? 0 : Fonts().find(wanted);
}

CFStringRef ATSFontCopyPostScriptName(ATSFontRef font) {
    return CopyText(font, &FontFace::postScriptName);
}

CFStringRef ATSFontCopyFamilyName(ATSFontRef font) { return CopyText(font, &FontFace::family); }

CFStringRef ATSFontCopyStyleName(ATSFontRef font) { return CopyText(font, &FontFace::style); }

CFArrayRef ATSFontCopyFamilies() {
    std::set<std::string> families;
    const FontSetPointer set = InstalledFonts(FC_FAMILY, "");
    for (FcPattern* const font : FontsIn(set)) {
        if (!TextOf(font, FC_POSTSCRIPT_NAME).empty()) families.insert(TextOf(font, FC_FAMILY));
    }
    return ArrayOf(families);
}

CFArrayRef ATSFontCopyFacesOfFamily(CFStringRef family) {
    const std::string wanted = CFStringToUTF8(family);
    if (wanted.empty()) return ArrayOf(std::vector<std::string>());
    std::set<std::tuple<int, int, std::string>> faces;
    const FontSetPointer set = InstalledFonts(FC_FAMILY, wanted);
    for (FcPattern* const font : FontsIn(set)) {
        std::string name = TextOf(font, FC_POSTSCRIPT_NAME);
        if (name.empty()) continue;
        faces.emplace(std::abs(NumberOf(font, FC_WEIGHT) - FC_WEIGHT_REGULAR),
                      NumberOf(font, FC_SLANT), std::move(name));
    }
    std::vector<std::string> names;
    for (const auto& face : faces) names.push_back(std::get<std::string>(face));
    return ArrayOf(names);
}
