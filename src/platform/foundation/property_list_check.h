// Looks an XML property list over before the library reads it. Private to the platform library.
#pragma once

#include <string>
#include <string_view>

namespace kalmo::foundation {

/// `text` is what the library may read; empty with a one-line `fault` when it must not.
struct CheckedXML {
    std::string text;
    std::string fault;
};

/// Refuses what is cut short, too large, nested too deeply or declares entities, and numbers, dates
/// and data that the library would read as something else.
[[nodiscard]] CheckedXML CheckPropertyListXML(std::string_view xml);

}  // namespace kalmo::foundation
