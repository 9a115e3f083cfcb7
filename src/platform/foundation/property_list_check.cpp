// The library reads leniently, frees a list as deep as it is nested, and takes the square of a
// text's length for its references. So the tags are walked here first, in step with the library: no
// tag may be seen that the library skips, or the depth counted here would not be the depth it
// meets.
#include "foundation/property_list_check.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <vector>

#include "foundation/property_list.h"

namespace {

constexpr std::string_view kSpace = " \t\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// Longer texts with references are read in parts of this many bytes.
constexpr std::size_t kLongestPart = 4096;

std::string_view Trimmed(std::string_view text) {
    const std::size_t start = std::min(text.find_first_not_of(kSpace), text.size());
    return text.substr(start, text.find_last_not_of(kSpace) + 1 - start);
}

/// Charconv reads no plus sign.
std::string_view WithoutPlus(std::string_view text) {
    return text.starts_with('+') && !text.starts_with("+-") ? text.substr(1) : text;
}

template <typename Number>
bool ReadsAs(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool IsInteger(std::string_view text) {
    const std::string_view number = WithoutPlus(text);
    const std::string_view digits = number.substr(number.starts_with('-') ? 1 : 0);
    // The library would take a leading zero for octal.
    return ReadsAs<std::int64_t>(number) && (digits.size() == 1 || !digits.starts_with('0'));
}

bool IsReal(std::string_view text) { return ReadsAs<double>(WithoutPlus(text)); }

struct DatePart {
    std::size_t at;
    std::string_view first, last;
};
/// Years are those whose seconds the library can tell.
constexpr DatePart kDateParts[] = {
    {0, "1933", "2068"}, {5, "01", "12"},  {8, "01", "31"},
    {11, "00", "23"},    {14, "00", "59"}, {17, "00", "59"},
};

/// Like 2026-11-21T12:00:00Z.
bool IsDate(std::string_view text) {
    constexpr std::string_view kShape = "0000-00-00T00:00:00Z";
    const auto fits = [](char character, char shape) {
        return shape == '0' ? character >= '0' && character <= '9' : character == shape;
    };
    return std::ranges::equal(text, kShape, fits) &&
           std::ranges::all_of(kDateParts, [text](const DatePart& part) {
               const std::string_view found = text.substr(part.at, part.first.size());
               return found >= part.first && found <= part.last;
           });
}

bool IsBase64(std::string_view text) {
    std::size_t count = 0;
    for (const char character : text) {
        const bool digit = (character >= 'A' && character <= 'Z') ||
                           (character >= 'a' && character <= 'z') ||
                           (character >= '0' && character <= '9') || character == '+' ||
                           character == '/' || character == '=';
        if (!digit && kSpace.find(character) == std::string_view::npos) return false;
        count += digit;
    }
    return count % 4 == 0;
}

/// Elements whose text the library would read whatever it is.
struct ScalarRow {
    std::string_view element;
    bool (*accepts)(std::string_view text);
    const char* fault;
};
constexpr ScalarRow kScalars[] = {
    {"integer", IsInteger, "no decimal integer of 64 bits"},
    {"real", IsReal, "no real number"},
    {"date", IsDate, "no date from 1933 to 2068"},
    {"data", IsBase64, "no data in base 64"},
};

class XMLCheck final {
public:
    explicit XMLCheck(std::string_view text) : text_(text) {}

    kalmo::foundation::CheckedXML check() {
        if (text_.size() > kPropertyListMaximumBytes) return {{}, "larger than 64 MiB"};
        if (text_.find('\0') != std::string_view::npos) return {{}, "not XML text in UTF-8"};
        if (text_.starts_with(kByteOrderMark)) text_.remove_prefix(kByteOrderMark.size());
        while (fault_.empty() && nextTag()) {
        }
        if (fault_.empty() && !sawRoot_) fault_ = "no XML property list";
        if (fault_.empty() && (depth_ != 0 || !sawEnd_)) fault_ = "cut short";
        if (!fault_.empty()) return {{}, fault_};
        return {inParts(), {}};
    }

private:
    bool nextTag() {
        const std::size_t start = at_;
        at_ = std::min(text_.find('<', at_), text_.size());
        splitRun(start, at_);
        const std::string_view rest = text_.substr(at_);
        if (rest.empty()) return false;
        // The end may not overlap the start: "<!-->" opens a comment and does not close it.
        if (rest.starts_with("<!--")) return skipPast("-->", 4);
        if (rest.starts_with("<![CDATA[")) return skipPast("]]>", 9);
        if (rest.starts_with("<?")) return skipPast("?>", 1) && quotesEnd();
        if (!skipPast(">", 1) || !quotesEnd()) return false;
        const std::string_view tag = rest.substr(1, rest.find('>') - 1);
        if (!tag.starts_with('!')) return element(tag);
        // Declarations inside a document type could define entities that grow without end.
        return tag.find('[') == std::string_view::npos ||
               refuse("declarations inside the document type are not accepted");
    }

    bool skipPast(std::string_view end, std::size_t from) {
        const std::size_t found = text_.find(end, at_ + from);
        if (found == std::string_view::npos) return refuse("cut short");
        tag_ = text_.substr(at_, found - at_);
        at_ = found + end.size();
        return true;
    }

    /// The library takes what stands in quotes for no end of a tag.
    bool quotesEnd() {
        return std::ranges::count(tag_, '"') % 2 == 0 || refuse("a tag ends within quotes");
    }

    bool element(std::string_view tag) {
        const bool isEmpty = tag.ends_with('/');
        std::string_view name = tag.substr(0, tag.find_first_of(kSpace));
        if (isEmpty && name.size() == tag.size()) name.remove_suffix(1);
        const bool isContainer = name == "dict" || name == "array";
        sawRoot_ = sawRoot_ || name == "plist";
        sawEnd_ = sawEnd_ || name == "/plist";
        if (name == "/dict" || name == "/array") --depth_;
        if (isContainer && !isEmpty && ++depth_ > kPropertyListMaximumDepth) {
            return refuse("nested more than 512 levels deep");
        }
        return scalar(name, isEmpty);
    }

    bool scalar(std::string_view name, bool isEmpty) {
        const auto* const row = std::ranges::find(kScalars, name, &ScalarRow::element);
        if (row == std::ranges::end(kScalars)) return true;
        const std::size_t end = isEmpty ? at_ : std::min(text_.find('<', at_), text_.size());
        const bool closes = isEmpty || text_.substr(end).starts_with("</");
        const std::string_view content = Trimmed(text_.substr(at_, end - at_));
        return (closes && row->accepts(content)) || refuseHere(row->fault);
    }

    /// Where a long text can be cut between its references.
    void splitRun(std::size_t begin, std::size_t end) {
        const std::string_view run = text_.substr(begin, end - begin);
        if (run.size() <= kLongestPart || run.find('&') == std::string_view::npos) return;
        std::size_t last = begin;
        bool inReference = false;
        for (std::size_t i = begin; i < end; ++i) {
            if (!inReference && i - last >= kLongestPart) cuts_.push_back(last = i);
            inReference = text_[i] == '&' || (inReference && text_[i] != ';');
        }
    }

    /// An empty comment ends a part, and stands for nothing.
    [[nodiscard]] std::string inParts() const {
        std::string text;
        text.reserve(text_.size() + 7 * cuts_.size());
        std::size_t done = 0;
        for (const std::size_t cut : cuts_) {
            text.append(text_.substr(done, cut - done)).append("<!---->");
            done = cut;
        }
        return text.append(text_.substr(done));
    }

    bool refuse(const std::string& why) {
        fault_ = why;
        return false;
    }
    bool refuseHere(const std::string& why) {
        const auto lines = std::ranges::count(text_.substr(0, at_), '\n');
        return refuse("line " + std::to_string(lines + 1) + ": " + why);
    }

    std::string_view text_, tag_;
    std::size_t at_ = 0;
    int depth_ = 0;
    bool sawRoot_ = false, sawEnd_ = false;
    std::string fault_;
    std::vector<std::size_t> cuts_;
};

}  // namespace

kalmo::foundation::CheckedXML kalmo::foundation::CheckPropertyListXML(std::string_view xml) {
    return XMLCheck(xml).check();
}
