#include "contacts/vcard.h"

#include <algorithm>
#include <optional>

namespace contacts {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::size_t EndOfLine(std::string_view text, std::size_t at) {
    const std::size_t newline = text.find('\n', at);
    return newline == std::string_view::npos ? text.size() : newline + 1;
}

std::string_view WithoutLineEnd(std::string_view line) {
    if (line.ends_with('\n')) line.remove_suffix(1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

bool IsSoftBreak(std::string_view row) { return WithoutLineEnd(row).ends_with('='); }

/// First `mark` outside of quotes from `at`; npos without one.
std::size_t FindUnquoted(std::string_view text, std::string_view marks, std::size_t at) {
    bool quoted = false;
    for (; at < text.size(); ++at) {
        if (text[at] == '"') quoted = !quoted;
        if (!quoted && marks.find(text[at]) != std::string_view::npos) return at;
    }
    return std::string_view::npos;
}

/// Of group and name. Quotes mean nothing there.
std::size_t EndOfName(std::string_view line) {
    return std::min(line.find_first_of(";:"), line.size());
}

std::size_t EndOfHead(std::string_view line) {
    const std::size_t colon = FindUnquoted(line, ":", EndOfName(line));
    // A quote that nobody closes is only a character.
    return colon == std::string_view::npos ? std::min(line.find(':'), line.size()) : colon;
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool quoted = value.size() >= 2 && value.front() == '"' && value.back() == '"';
    return quoted ? value.substr(1, value.size() - 2) : value;
}

/// At marks outside of quotes; at least one part. The last of very many keeps the rest.
std::vector<std::string_view> Parts(std::string_view text, std::string_view mark) {
    constexpr std::size_t kMost = 4096;
    std::vector<std::string_view> parts;
    for (std::size_t at = 0; at <= text.size();) {
        const bool last = parts.size() + 1 == kMost;
        const std::size_t end = last ? text.size() : FindUnquoted(text, mark, at);
        parts.push_back(text.substr(at, end - at));
        at = std::min(end, text.size()) + 1;
    }
    return parts;
}

Parameter ReadParameter(std::string_view written) {
    Parameter parameter;
    parameter.written = written;
    const std::size_t equals = written.find('=');
    const bool named = equals != std::string_view::npos;
    if (named) parameter.name = Upper(Trimmed(written.substr(0, equals)));
    for (const std::string_view value : Parts(written.substr(named ? equals + 1 : 0), ",")) {
        parameter.values.push_back(ParameterText(WithoutQuotes(Trimmed(value))));
    }
    // A quote that nobody closes would swallow what is written behind it.
    if (std::ranges::count(written, '"') % 2 != 0) parameter.rewrite();
    return parameter;
}

void ReadHead(std::string_view head, Property& property) {
    const std::string_view name = head.substr(0, EndOfName(head));
    const std::size_t dot = name.rfind('.');
    const bool grouped = dot != std::string_view::npos;
    if (grouped) property.group = name.substr(0, dot);
    property.name = name.substr(grouped ? dot + 1 : 0);
    if (name.size() == head.size()) return;
    for (const std::string_view parameter : Parts(head.substr(name.size() + 1), ";")) {
        property.parameters.push_back(ReadParameter(parameter));
    }
}

bool SaysQuotedPrintable(const Parameter& parameter) {
    return (parameter.name.empty() || parameter.name == "ENCODING") &&
           EqualWithoutCase(parameter.values[0], "QUOTED-PRINTABLE");
}

/// Lines of a value in quoted-printable end with a soft break where it goes on. A head is not
/// folded there.
bool HasSoftBreaks(std::string_view row) {
    if (!IsSoftBreak(row)) return false;
    Property property;
    ReadHead(row.substr(0, EndOfHead(row)), property);
    return std::ranges::any_of(property.parameters, SaysQuotedPrintable);
}

/// Past the line that starts at `at`, with all that continues it.
std::size_t EndOfFoldedLine(std::string_view text, std::size_t at) {
    std::size_t end = EndOfLine(text, at);
    std::string_view row = text.substr(at, end - at);
    const bool softBreaks = HasSoftBreaks(row);
    const auto continues = [&] {
        return end < text.size() &&
               (text[end] == ' ' || text[end] == '\t' || (softBreaks && IsSoftBreak(row)));
    };
    while (continues()) {
        const std::size_t next = EndOfLine(text, end);
        row = text.substr(end, next - end);
        end = next;
    }
    return end;
}

std::string Unfolded(std::string_view raw) {
    const bool softBreaks = HasSoftBreaks(raw.substr(0, EndOfLine(raw, 0)));
    std::string line;
    line.reserve(raw.size());
    for (std::size_t at = 0, end = 0; at < raw.size(); at = end) {
        end = EndOfLine(raw, at);
        const bool softBreak = softBreaks && line.ends_with('=');
        if (softBreak) line.pop_back();
        if (at > 0 && !softBreak) ++at;  // the space that marks a fold
        line += WithoutLineEnd(raw.substr(at, end - at));
    }
    return line;
}

bool IsTransferParameter(const Parameter& parameter) {
    return parameter.name == "CHARSET" || SaysQuotedPrintable(parameter);
}

bool IsPlain(std::string_view value) {
    return std::ranges::all_of(value, [](char c) { return c >= ' ' && c < 0x7F; });
}

enum class Frame { none, blank, begin, end };

Frame FrameOf(std::string_view raw) {
    const std::string_view line = Trimmed(raw);
    if (line.empty()) return Frame::blank;
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) return Frame::none;
    if (!EqualWithoutCase(Trimmed(line.substr(colon + 1)), "VCARD")) return Frame::none;
    const std::string_view name = Trimmed(line.substr(0, colon));
    if (EqualWithoutCase(name, "BEGIN")) return Frame::begin;
    return EqualWithoutCase(name, "END") ? Frame::end : Frame::none;
}

/// A line whose name itself is folded stays without one: no program writes it.
Card::Line Named(std::string_view raw) {
    const std::string_view row = raw.substr(0, EndOfLine(raw, 0));
    const std::size_t end = EndOfName(row);
    if (end == row.size() && row.size() < raw.size()) return {raw};
    const std::string_view name = WithoutLineEnd(row).substr(0, end);
    // npos + 1 is 0: without a group the name starts the line.
    const std::size_t start = name.rfind('.') + 1;
    return {raw, static_cast<std::uint32_t>(start),
            static_cast<std::uint32_t>(name.size() - start)};
}

std::optional<Version> VersionOf(std::string_view value) {
    if (value == "2.1") return Version::v21;
    if (value == "3.0") return Version::v30;
    if (value == "4.0") return Version::v40;
    return std::nullopt;
}

/// Past the byte order mark and white space.
std::size_t StartOfText(std::string_view text) {
    const std::size_t mark = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    return std::min(text.find_first_not_of(" \t\r\n", mark), text.size());
}

}  // namespace

void Parameter::rewrite() {
    std::string list;
    for (const std::string& value : values) {
        if (!list.empty()) list += ',';
        list += WrittenParameter(value);
    }
    // What it cannot be written with is not left out: another name might remain.
    std::ranges::replace_if(
        name, [](char c) { return c == '"' || c == ';' || c == ':'; }, '_');
    written = name.empty() ? list : name + '=' + list;
}

std::string_view Property::parameter(std::string_view upperName) const {
    const auto found = std::ranges::find(parameters, upperName, &Parameter::name);
    return found == parameters.end() ? std::string_view() : found->values[0];
}

std::vector<std::string> Property::types() const {
    std::vector<std::string> types;
    for (const Parameter& parameter : parameters) {
        if (!parameter.name.empty() && parameter.name != "TYPE") continue;
        for (const std::string& list : parameter.values) {
            // Version 4.0 quotes the whole list.
            for (const std::string_view type : Parts(list, ",")) types.push_back(Upper(type));
        }
    }
    return types;
}

void Property::setParameter(std::string_view upperName, const std::vector<std::string>& values) {
    Parameter parameter{"", std::string(upperName), values};
    parameter.rewrite();
    removeParameter(upperName);
    parameters.insert(parameters.begin(), std::move(parameter));
}

void Property::removeParameter(std::string_view upperName) {
    std::erase_if(parameters, [&](const Parameter& it) { return it.name == upperName; });
}

Property ReadProperty(std::string_view raw) {
    const std::string line = Unfolded(raw);
    const std::size_t colon = EndOfHead(line);
    Property property;
    ReadHead(UTF8Of(std::string_view(line).substr(0, colon), {}), property);
    std::string value = colon < line.size() ? line.substr(colon + 1) : "";
    if (std::ranges::any_of(property.parameters, SaysQuotedPrintable)) {
        value = FromQuotedPrintable(value);
    }
    property.value = UTF8Of(value, property.parameter("CHARSET"));
    return property;
}

std::string WriteProperty(const Property& property, Version version, std::string_view lineEnd) {
    const bool quotedPrintable = version == Version::v21 && !IsPlain(property.value);
    std::string line = property.group.empty() ? "" : property.group + '.';
    line += property.name;
    const std::size_t nameEnd = line.size();
    if (quotedPrintable) line += ";CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE";
    for (const Parameter& parameter : property.parameters) {
        if (!IsTransferParameter(parameter)) line += ';' + parameter.written;
    }
    line += ':';
    if (version != Version::v21) return InFolds(line + property.value, nameEnd, lineEnd);
    line +=
        quotedPrintable ? ToQuotedPrintable(property.value, line.size(), lineEnd) : property.value;
    return line += lineEnd;
}

void Card::replace(std::size_t line, const Property& property) {
    written_.push_front(WriteProperty(property, version_, lineEnd_));
    lines_[line] = Named(written_.front());
    edited_ = true;
}

void Card::remove(std::size_t line) {
    lines_[line] = {};
    edited_ = true;
}

void Card::addBehind(std::size_t line, const Property& property) {
    added_[line] += WriteProperty(property, version_, lineEnd_);
    edited_ = true;
}

std::string Card::text() const {
    std::string text;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        text += lines_[i].raw;
        if (const auto added = added_.find(i); added != added_.end()) text += added->second;
    }
    return text;
}

/// Goes through a text line by line, and knows how deep in cards it is.
class CardReader final {
public:
    explicit CardReader(std::string_view text) : text_(text) {}

    std::vector<Card> cards() {
        const std::size_t start = StartOfText(text_);
        for (std::size_t at = start, end = 0; at < text_.size(); at = end) {
            end = EndOfFoldedLine(text_, at);
            if (!take(text_.substr(at, end - at))) return {};
        }
        if (depth_ != 0 || cards_.empty()) return {};
        std::string_view& first = cards_.front().lines_.front().raw;
        first = text_.substr(0, start + first.size());
        return std::move(cards_);
    }

private:
    /// False for what stands in no card, and at the end of a card that says nothing.
    bool take(std::string_view raw) {
        const Frame frame = FrameOf(raw);
        if (depth_ == 0 && frame == Frame::begin) {
            cards_.emplace_back().lineEnd_ = raw.ends_with("\r\n") ? "\r\n" : "\n";
        } else if (depth_ == 0 && frame != Frame::blank) {
            return false;
        }
        keep(raw, frame == Frame::none && depth_ == 1);
        if (frame == Frame::begin) ++depth_;
        return frame != Frame::end || --depth_ > 0 || close(cards_.back());
    }

    /// Blank lines and cards within the card are kept in one piece: a file of nothing else must
    /// not cost many times its size.
    void keep(std::string_view raw, bool isProperty) {
        std::vector<Card::Line>& lines = cards_.back().lines_;
        const bool joins = !isProperty && !lines.empty() && lines.back().nameSize == 0;
        if (joins) {
            lines.back().raw = {lines.back().raw.data(), lines.back().raw.size() + raw.size()};
        } else {
            lines.push_back(isProperty ? Named(raw) : Card::Line{raw});
        }
    }

    bool close(Card& card) {
        card.end_ = card.lines_.size() - 1;
        if (card.end_ == 0) return false;
        const auto line = std::ranges::find_if(card.lines_, [](const Card::Line& it) {
            return EqualWithoutCase(it.name(), "VERSION");
        });
        if (line == card.lines_.end()) return true;
        const auto version = VersionOf(Trimmed(ReadProperty(line->raw).value));
        card.version_ = version.value_or(Version::v30);
        return version.has_value();
    }

    std::string_view text_;
    std::vector<Card> cards_;
    int depth_ = 0;
};

std::vector<Card> Card::ReadAll(std::string_view text) {
    if (text.find('\0') != std::string_view::npos) return {};
    return CardReader(text).cards();
}

}  // namespace contacts
