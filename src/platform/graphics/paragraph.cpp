#include "graphics/paragraph.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>

namespace kalmo::graphics {
namespace {

// Enough for many lines, little enough that a text of any length is not laid out as a whole.
constexpr std::size_t kUnitsAtOnce = 2048;
constexpr double kWidestColumn = 30000;

bool IsFirstHalf(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsSecondHalf(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
bool IsLineEnd(char32_t character) {
    return character == '\n' || character == '\r' || character == 0x2028 || character == 0x2029;
}
bool IsControl(char32_t character) {
    return character < ' ' || (character >= 0x7F && character < 0xA0);
}

/// Controls become spaces: they would show as boxes, or end the text.
char32_t Printable(char32_t character, bool keepsLineEnds) {
    if (IsLineEnd(character) && keepsLineEnds) return character;
    if (character == '\t' && keepsLineEnds) return character;
    return IsControl(character) || IsLineEnd(character) ? U' ' : character;
}

std::string Utf8Of(std::u16string_view text, bool keepsLineEnds) {
    std::string utf8;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        const bool isPair =
            IsFirstHalf(text[i]) && i + 1 < text.size() && IsSecondHalf(text[i + 1]);
        if (isPair) character = 0x10000 + ((text[i] & 0x3FFu) << 10) + (text[i + 1] & 0x3FFu);
        if (!isPair && (IsFirstHalf(text[i]) || IsSecondHalf(text[i]))) character = 0xFFFD;
        if (isPair) ++i;
        char bytes[6];
        const int count = g_unichar_to_utf8(Printable(character, keepsLineEnds), bytes);
        utf8.append(bytes, static_cast<std::size_t>(count));
    }
    return utf8;
}

/// UTF-16 units of so much UTF-8: one for each first byte, two where four bytes follow.
std::size_t UnitsIn(std::string_view utf8) {
    std::size_t units = 0;
    for (const char byte : utf8) {
        const auto value = static_cast<unsigned char>(byte);
        if ((value & 0xC0) != 0x80) units += value >= 0xF0 ? 2 : 1;
    }
    return units;
}

/// Measured at the size of the page, not at that of a screen: nothing snaps to pixels.
PangoContextPointer CreateContext() {
    PangoContextPointer context(pango_font_map_create_context(pango_cairo_font_map_get_default()));
    pango_cairo_context_set_resolution(context.get(), 72);
    const FontOptionsPointer options(cairo_font_options_create());
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    pango_cairo_context_set_font_options(context.get(), options.get());
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    // The user's language would choose among the fonts that fill in for missing letters.
    pango_context_set_language(context.get(), pango_language_from_string("en"));
    pango_context_set_base_dir(context.get(), PANGO_DIRECTION_LTR);
    return context;
}

double Points(int units) { return static_cast<double>(units) / PANGO_SCALE; }

/// A cut never parts a pair of units or of line ends.
std::size_t WholeCharacters(const std::u16string& text, std::size_t end) {
    if (end >= text.size()) return text.size();
    return IsFirstHalf(text[end - 1]) || text[end - 1] == '\r' ? end - 1 : end;
}

}  // namespace

void Paragraph::setText(std::u16string text) {
    text_ = std::move(text);
    kind_ = Kind::None;
}

void Paragraph::setFont(PangoFontPointer font) {
    font_ = std::move(font);
    kind_ = Kind::None;
}

const ParagraphLine& Paragraph::breakLine(std::size_t start, double width) {
    const double column = std::clamp(width, 0.0, kWidestColumn);
    const int units = static_cast<int>(std::lround(column * PANGO_SCALE));
    const bool isLaidOut = kind_ == Kind::Column && width_ == units;
    const ParagraphLine* line = isLaidOut ? lineFrom(start) : nullptr;
    // A part's last line may go on behind its end; then the part is too short.
    const auto goesOn = [this](const ParagraphLine* last) {
        return last == &lines_.back() && end_ < text_.size();
    };
    for (std::size_t count = kUnitsAtOnce; !line || goesOn(line); count *= 2) {
        layOut(Kind::Column, start, WholeCharacters(text_, start + count), units);
        line = &lines_.front();
    }
    return *line;
}

const ParagraphLine& Paragraph::lineAt(std::size_t start, std::size_t end) {
    if (kind_ != Kind::None) {
        const ParagraphLine* const line = lineFrom(start);
        if (line && line->next == end) return *line;
    }
    layOut(Kind::OneLine, start, end, -1);
    return lines_.front();
}

std::size_t Paragraph::offsetOfByte(int byte) const {
    return start_ + UnitsIn(std::string_view(utf8_).substr(0, static_cast<std::size_t>(byte)));
}

void Paragraph::layOut(Kind kind, std::size_t start, std::size_t end, int width) {
    if (!context_) context_ = CreateContext();
    kind_ = kind;
    start_ = start;
    end_ = end;
    width_ = width;
    utf8_ = Utf8Of(std::u16string_view(text_).substr(start, end - start), kind == Kind::Column);
    layout_.reset(pango_layout_new(context_.get()));
    pango_layout_set_font_description(layout_.get(), font_.get());
    pango_layout_set_width(layout_.get(), width);
    pango_layout_set_wrap(layout_.get(), PANGO_WRAP_WORD_CHAR);
    pango_layout_set_single_paragraph_mode(layout_.get(), kind == Kind::OneLine);
    pango_layout_set_text(layout_.get(), utf8_.data(), static_cast<int>(utf8_.size()));
    readLines();
}

void Paragraph::readLines() {
    lines_.clear();
    const PangoLayoutIterPointer place(pango_layout_get_iter(layout_.get()));
    do {
        ParagraphLine line;
        line.line = pango_layout_iter_get_line_readonly(place.get());
        line.byteStart = line.line->start_index;
        line.start = lines_.empty() ? start_ : lines_.back().next;
        if (!lines_.empty()) {
            const auto from = static_cast<std::size_t>(lines_.back().byteStart);
            const auto to = static_cast<std::size_t>(line.byteStart);
            line.start =
                lines_.back().start + UnitsIn(std::string_view(utf8_).substr(from, to - from));
            lines_.back().next = line.start;
        }
        line.next = end_;
        PangoRectangle extents;
        pango_layout_iter_get_line_extents(place.get(), nullptr, &extents);
        const int baseline = pango_layout_iter_get_baseline(place.get());
        line.width = Points(extents.width);
        line.ascent = Points(baseline - extents.y);
        line.descent = Points(extents.y + extents.height - baseline);
        lines_.push_back(line);
    } while (pango_layout_iter_next_line(place.get()));
}

const ParagraphLine* Paragraph::lineFrom(std::size_t start) const {
    const auto line = std::ranges::lower_bound(lines_, start, {}, &ParagraphLine::start);
    return line != lines_.end() && line->start == start ? &*line : nullptr;
}

}  // namespace kalmo::graphics
