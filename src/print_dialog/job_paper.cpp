#include "print_dialog/job_paper.h"

#include <QString>
#include <algorithm>
#include <array>
#include <cmath>

#include "print_dialog/color_options.h"
#include "print_dialog/papers.h"
#include "print_dialog/summary_phrases.h"
#include "print_dialog/text_limits.h"
#include "print_dialog/window_texts.h"
#include "settings/dictionary.h"
#include "settings/ppd_choices.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"

namespace kalmo {
namespace {

/// What a ticket's number for "not set" is; WriteTicketValue writes it as any other.
constexpr SInt32 kNotSet = INT32_MIN;
constexpr SInt32 kCustomSize = 75, kCustomColor = 10, kFromInserter = 10;
constexpr SInt32 kPrecutTabs = 4, kCustomTabs = 6, kCustomType = 7;
/// Tenths of a millimetre; wider or longer paper there is none.
constexpr SInt32 kLongestSide = 200000;
constexpr double kTenthsPerPoint = 254.0 / 72;

constexpr std::array<std::string_view, 3> kLeftToPrinter = {"PrinterDefault", "SystemDefault",
                                                            "PrinterDefaultColor"};

std::optional<SInt32> NumberIn(CFDictionaryRef stock, CFStringRef key) {
    const auto number = SInt32InDictionary(stock, key);
    return number == kNotSet ? std::nullopt : number;
}

/// The printer's text for a paper's number; empty for a number that no printer knows.
std::string TextOfNumber(const PrintJobHost& host, CFStringRef option,
                         std::optional<SInt32> number) {
    const CFStringRef choice = number ? PPDChoiceForTicketValue(option, *number) : nullptr;
    return choice ? ShownChoice(host, CFStringToUTF8(option), CFStringToUTF8(choice))
                  : std::string();
}

std::string SizeText(const PrintJobHost& host, CFDictionaryRef stock) {
    const auto size = NumberIn(stock, CFSTR("Size"));
    if (size != kCustomSize) return TextOfNumber(host, CFSTR("PageSize"), size);
    const SInt32 width = NumberIn(stock, CFSTR("Width")).value_or(0);
    const SInt32 length = NumberIn(stock, CFSTR("Length")).value_or(0);
    const bool known = std::min(width, length) > 0 && std::max(width, length) <= kLongestSide;
    if (!known) return HostText("Summary custom size");
    return PaperSizeText(width / kTenthsPerPoint, length / kTenthsPerPoint);
}

/// In the user's words, or of tabs; empty for the types that the printer has words for.
std::string OwnTypeText(CFDictionaryRef stock) {
    const auto type = NumberIn(stock, CFSTR("Type"));
    if (type == kPrecutTabs) return HostText("Summary tabs");
    const bool own = type == kCustomType || type == kCustomTabs;
    return own ? ShownText(StringInDictionary(stock, CFSTR("CustomType"))) : std::string();
}

std::string OwnColorText(CFDictionaryRef stock) {
    const bool own = NumberIn(stock, CFSTR("Color")) == kCustomColor;
    return own ? ShownText(StringInDictionary(stock, CFSTR("CustomColor"))) : std::string();
}

/// `missing` is as long as the list of keys, or empty.
std::vector<SInt32> FurtherNumbers(CFDictionaryRef stock, const std::vector<SInt32>& missing) {
    std::vector<SInt32> numbers;
    for (const CFStringRef key :
         {CFSTR("Modulus"), CFSTR("Weight"), CFSTR("Punched"), CFSTR("Finish"), CFSTR("kGrain"),
          CFSTR("SidesCoated"), CFSTR("kCoatingType")}) {
        const SInt32 otherwise = missing.empty() ? kNotSet : missing[numbers.size()];
        numbers.push_back(NumberIn(stock, key).value_or(otherwise));
    }
    return numbers;
}

std::string FirstText(std::string text, const std::string& otherwise) {
    return text.empty() ? otherwise : std::move(text);
}

JobPaper PaperOfJob(const PrintJobHost& host) {
    // Without a pane the job goes without a ticket.
    const PMTicketRef ticket = host.printSettings();
    const auto stock = host.hasPane() ? DictionaryInTicket(ticket, kJobLevelStockKey) : nullptr;
    const bool ownSize =
        NumberIn(stock, CFSTR("Size")) == kCustomSize ||
        (FlagInTicket(ticket, kBookletLayoutKey) && FlagInTicket(ticket, kBookletForceNewSizeKey));
    const auto choice = [&host](const char* option) {
        return ShownChoice(host, option, EffectiveChoice(host, option));
    };
    return {.name = ShownText(StringInDictionary(stock, CFSTR("CustomName"))),
            .size = FirstText(
                ownSize ? SizeText(host, stock) : "",
                FirstText(ShownText(host.paper().text), ShownText(host.settings().paper))),
            .type = FirstText(OwnTypeText(stock), choice("MediaType")),
            .color = FirstText(OwnColorText(stock), choice("MediaColor")),
            .source = ShownChoice(host, "InputSlot", host.ppdChoice("InputSlot")),
            .further = FurtherNumbers(stock, {})};
}

JobPaper OwnPaper(const PrintJobHost& host, CFDictionaryRef stock) {
    const bool inserter = NumberIn(stock, CFSTR("Source")) == kFromInserter;
    return {.name = ShownText(StringInDictionary(stock, CFSTR("CustomName"))),
            .size = SizeText(host, stock),
            .type = FirstText(OwnTypeText(stock), TextOfNumber(host, CFSTR("MediaType"),
                                                               NumberIn(stock, CFSTR("Type")))),
            .color = FirstText(OwnColorText(stock), TextOfNumber(host, CFSTR("MediaColor"),
                                                                 NumberIn(stock, CFSTR("Color")))),
            .source = inserter ? HostText("Summary inserter") : ""};
}

}  // namespace

std::string ShownText(const std::string& text, int longest) {
    const auto start = WithoutControls(text.substr(0, 4 * static_cast<std::size_t>(longest)));
    QString shown = QString::fromStdString(start).simplified();
    if (shown.size() > longest) {
        const int end = longest - (shown[longest - 1].isHighSurrogate() ? 1 : 0);
        shown = shown.left(end) + "…";
    }
    return shown.toStdString();
}

std::string ShownText(CFStringRef text) { return ShownText(CFStringToUTF8(text)); }

std::string ShownChoice(const PrintJobHost& host, const std::string& option,
                        const std::string& choice) {
    if (std::ranges::find(kLeftToPrinter, choice) != kLeftToPrinter.end()) return {};
    const auto textIn = [&choice](const auto& rows) {
        const auto row =
            std::ranges::find(rows, choice, [](const auto& each) { return each.keyword; });
        return ShownText(row == rows.end() || row->text.empty() ? choice : row->text);
    };
    if (!host.description()) return ShownText(choice);
    if (option == "PageSize") {
        const auto paper = FindPaper(*host.description(), choice);
        return ShownText(paper && !paper->text.empty() ? paper->text : choice);
    }
    const auto* known = FindOption(*host.description(), option);
    return known ? textIn(known->choices) : ShownText(choice);
}

std::string EffectiveChoice(const PrintJobHost& host, const std::string& option) {
    const auto* known = host.description() ? FindOption(*host.description(), option) : nullptr;
    if (!known) return {};
    const auto chosen = host.ppdChoice(option);
    return chosen.empty() ? known->defaultChoice : chosen;
}

std::string JobPaper::text() const { return JoinedPhrases({name, size, type, color, source}); }

JobPapers::JobPapers(const PrintJobHost& host) : host_(host), papers_{PaperOfJob(host)} {
    numbers_[papers_.front()] = 0;
}

int JobPapers::numberOf(CFDictionaryRef page) {
    const JobPaper& job = papers_.front();
    const auto stock = DictionaryInDictionary(page, CFSTR("Stock"));
    JobPaper paper = OwnPaper(host_, stock);
    const bool another = !paper.text().empty();
    paper.further = FurtherNumbers(stock, job.further);
    paper.size = FirstText(std::move(paper.size), job.size);
    paper.type = FirstText(std::move(paper.type), job.type);
    paper.color = FirstText(std::move(paper.color), job.color);
    // The printer looks for another paper by what it is, not in the job's own tray.
    if (!another) {
        paper.name = job.name;
        paper.source = job.source;
    }
    const auto [place, isNew] = numbers_.emplace(paper, static_cast<int>(papers_.size()));
    if (isNew) papers_.push_back(std::move(paper));
    return place->second;
}

}  // namespace kalmo
