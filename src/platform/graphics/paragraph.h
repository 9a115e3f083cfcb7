// A text laid out by pango: which lines it has, and what each of them measures. Private to the
// graphics folder.
#pragma once

#include <string>
#include <vector>

#include "graphics/cairo_pointers.h"

namespace kalmo::graphics {

/// A line of what was laid out last; `line` is borrowed from there. Offsets in UTF-16 units.
struct ParagraphLine {
    PangoLayoutLine* line = nullptr;
    std::size_t start = 0, next = 0;
    int byteStart = 0;
    double width = 0, ascent = 0, descent = 0;  // pt
};

class Paragraph final {
public:
    void setText(std::u16string text);
    void setFont(PangoFontPointer font);

    [[nodiscard]] std::size_t length() const { return text_.size(); }
    /// The line that begins at `start` in a column of so many pt. `start` lies before the end.
    [[nodiscard]] const ParagraphLine& breakLine(std::size_t start, double width);
    /// All from `start` to `end` as one line, the one that was broken so when there is one.
    [[nodiscard]] const ParagraphLine& lineAt(std::size_t start, std::size_t end);
    /// The offset of a byte of the line's UTF-8 text, which line->start_index counts in.
    [[nodiscard]] std::size_t offsetOfByte(int byte) const;

private:
    enum class Kind { None, OneLine, Column };

    void layOut(Kind kind, std::size_t start, std::size_t end, int width);
    void readLines();
    [[nodiscard]] const ParagraphLine* lineFrom(std::size_t start) const;

    std::u16string text_;
    PangoFontPointer font_;
    PangoContextPointer context_;
    // What is laid out now: a part of the text, its UTF-8 form and its lines.
    Kind kind_ = Kind::None;
    std::size_t start_ = 0, end_ = 0;
    int width_ = -1;
    std::string utf8_;
    PangoLayoutPointer layout_;
    std::vector<ParagraphLine> lines_;
};

}  // namespace kalmo::graphics
