// vCard files without loss: a card is its lines, byte for byte, and an edit touches single lines.
//
// Versions 2.1, 3.0 and 4.0; lines end as they do in the file. Of what properties
// mean, only VERSION is known here.
#pragma once

#include <cstdint>
#include <forward_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "contacts/vcard_text.h"

namespace contacts {

/// One parameter. `written` is how it stands; a word alone (as in version 2.1) has no name.
struct Parameter {
    std::string written;
    std::string name;  // upper case
    std::vector<std::string> values;
    /// After a change of the values.
    void rewrite();
};

/// A line that has been read: UTF-8 throughout, the value still with its escapes.
struct Property {
    std::string group;  // without its dot
    std::string name;   // as it is spelled
    std::vector<Parameter> parameters;
    std::string value;

    /// The first value of a parameter; empty without one.
    [[nodiscard]] std::string_view parameter(std::string_view upperName) const;
    /// What the entry is for, in upper case: TYPE in any of its forms.
    [[nodiscard]] std::vector<std::string> types() const;
    void setParameter(std::string_view upperName, const std::vector<std::string>& values);
    void removeParameter(std::string_view upperName);
};

/// Reads a line with its folds.
[[nodiscard]] Property ReadProperty(std::string_view raw);
/// The line, folded or in quoted-printable as the version has it, with its end.
[[nodiscard]] std::string WriteProperty(const Property& property, Version version,
                                        std::string_view lineEnd);

/// One card. It borrows the text that it was read from.
class Card final {
public:
    /// A property's line with its folds. Blank lines, the card's frame and cards within the card
    /// have no name; neighbours among them may stand together.
    struct Line {
        std::string_view raw;
        std::uint32_t nameStart = 0, nameSize = 0;
        [[nodiscard]] std::string_view name() const { return raw.substr(nameStart, nameSize); }
        [[nodiscard]] std::string_view group() const {
            return raw.substr(0, nameStart > 0 ? nameStart - 1 : 0);
        }
    };
    /// Every card of the text; none when any is damaged or of an unknown version, or when
    /// something else stands between them.
    [[nodiscard]] static std::vector<Card> ReadAll(std::string_view text);

    Card() = default;
    Card(Card&&) noexcept = default;
    Card& operator=(Card&&) noexcept = default;

    [[nodiscard]] const std::vector<Line>& lines() const { return lines_; }
    [[nodiscard]] Property property(std::size_t line) const {
        return ReadProperty(lines_[line].raw);
    }
    [[nodiscard]] Version version() const { return version_; }
    [[nodiscard]] bool wasEdited() const { return edited_; }

    void replace(std::size_t line, const Property& property);
    void remove(std::size_t line);
    /// Behind what was added there before.
    void addBehind(std::size_t line, const Property& property);
    /// The last line before the card's end.
    [[nodiscard]] std::size_t lastLine() const { return end_ - 1; }
    [[nodiscard]] std::string text() const;

private:
    friend class CardReader;
    std::vector<Line> lines_;
    std::forward_list<std::string> written_;    // what the lines that were replaced borrow
    std::map<std::size_t, std::string> added_;  // behind which line
    std::size_t end_ = 0;                       // the line END:VCARD
    std::string_view lineEnd_ = "\r\n";
    Version version_ = Version::v30;
    bool edited_ = false;
};

}  // namespace contacts
