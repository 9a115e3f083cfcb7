// What a PostScript name tells of a font that is not installed. Private to the graphics folder.
#pragma once

#include <string>
#include <string_view>

namespace kalmo::graphics {

struct FontNameParts {
    std::string family;  // words apart: "Times New Roman"
    bool bold = false;
    bool slanted = false;
};

/// "TimesNewRomanPS-BoldMT" is Times New Roman, bold.
[[nodiscard]] FontNameParts PartsOfPostScriptName(std::string_view name);

}  // namespace kalmo::graphics
