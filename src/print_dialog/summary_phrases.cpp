#include "print_dialog/summary_phrases.h"

#include <QDateTime>
#include <QLocale>
#include <cstdlib>

#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr std::size_t kMostRanges = 12;
/// Later than this, a time is no time that anybody chose: 400 years behind 1904, in seconds.
constexpr SInt64 kLastTime = 12'622'780'800;

const std::string& Counted(std::int64_t count, const std::string& one, const std::string& many) {
    return count == 1 ? one : many;
}

/// "1-3, 7".
std::string Ranges(const std::vector<PageRange>& pages) {
    std::string text;
    for (std::size_t i = 0; i < pages.size() && i < kMostRanges; ++i) {
        if (i > 0) text += ", ";
        text += std::to_string(pages[i].first);
        if (pages[i].last != pages[i].first) text.append("-").append(std::to_string(pages[i].last));
    }
    return pages.size() > kMostRanges ? text + ", …" : text;
}

bool IsOnePage(const std::vector<PageRange>& pages) {
    return pages.size() == 1 && pages.front().first == pages.front().last;
}

/// As people here write day and time; empty for no time.
std::string Moment(SInt64 secondsSince1904) {
    if (secondsSince1904 <= 0 || secondsSince1904 > kLastTime) return {};
    // Local time as it is, not a moment of the world.
    const QDateTime start(QDate(1904, 1, 1), QTime(0, 0), Qt::UTC);
    return QLocale::system()
        .toString(start.addSecs(secondsSince1904), QLocale::ShortFormat)
        .toStdString();
}

std::string FaxPhrase(const FaxContents& fax) {
    const auto time = Moment(fax.sendTime);
    const auto recipients =
        fax.recipients == 0 ? HostText("Summary fax without recipients")
                            : Counted(fax.recipients, HostText("Summary fax to one"),
                                      HostText("Summary fax to", {std::to_string(fax.recipients)}));
    return JoinedPhrases({recipients, time.empty() ? "" : HostText("Summary fax at", {time}),
                          fax.coverSheet ? HostText("Summary fax cover") : "",
                          fax.confirmation ? HostText("Summary fax confirmation") : ""});
}

std::string Lightness(int lightness) {
    const std::string steps = std::to_string(std::abs(lightness));
    if (lightness == 0) return {};
    return lightness < 0 ? HostText("Summary lighter", {steps})
                         : HostText("Summary darker", {steps});
}

}  // namespace

std::string JoinedPhrases(const std::vector<std::string>& phrases) {
    std::string joined;
    for (const std::string& phrase : phrases) {
        if (phrase.empty()) continue;
        joined = joined.empty() ? phrase : HostText("Summary phrases", {joined, phrase});
    }
    return joined;
}

std::string NamedPhrase(const std::string& name, const std::string& phrase) {
    return HostText("Summary name", {name}) + " " + phrase;
}

std::string DocumentPages(const std::vector<PageRange>& chosen, int pageCount) {
    const std::string count = std::to_string(pageCount);
    if (chosen.empty()) {
        return Counted(pageCount, HostText("Summary one page"),
                       HostText("Summary all pages", {count}));
    }
    return IsOnePage(chosen) ? HostText("Summary page of", {Ranges(chosen), count})
                             : HostText("Summary pages of", {Ranges(chosen), count});
}

std::string PhraseOfPages(const std::vector<PageRange>& pages) {
    return IsOnePage(pages) ? HostText("Summary page", {Ranges(pages)})
                            : HostText("Summary pages", {Ranges(pages)});
}

std::string CopiesPhrase(const JobSettings& settings) {
    const std::string count = std::to_string(settings.copies);
    if (settings.copies <= 1) return count;
    return settings.collate ? HostText("Summary collated", {count})
                            : HostText("Summary not collated", {count});
}

std::string SheetsPhrase(const SheetPlan& plan) {
    const std::string one = std::to_string(plan.sheetsPerCopy());
    if (plan.copies <= 1) return one;
    return HostText("Summary sheets in all", {one, std::to_string(plan.sheetsInAll())});
}

std::string SidesPhrase(PrintedSides sides) {
    switch (sides) {
        case PrintedSides::longEdge:
            return HostText("Summary two sides");
        case PrintedSides::shortEdge:
            return HostText("Summary two sides short edge");
        case PrintedSides::one:
            break;
    }
    return HostText("Summary one side");
}

std::string CoverPhrase(const PlanCover& cover, const PlannedSheet* sheet) {
    if (cover.printedSides == 0) return HostText("Summary cover blank");
    const auto printed = cover.printedSides > 1 ? HostText("Summary cover both sides")
                                                : HostText("Summary cover one side");
    if (!sheet) return printed;
    std::vector<int> pages;
    AppendPages(*sheet, pages);
    if (pages.empty()) return HostText("Summary cover without page");
    const auto ranges = RangesOfPages(std::move(pages));
    return JoinedPhrases({printed, IsOnePage(ranges)
                                       ? HostText("Summary cover page", {Ranges(ranges)})
                                       : HostText("Summary cover pages", {Ranges(ranges)})});
}

std::string InsertPhrase(const PlanInsert& insert) {
    const std::string sheets = std::to_string(insert.sheets);
    if (insert.afterPage == 0) {
        return Counted(insert.sheets, HostText("Summary one sheet first"),
                       HostText("Summary sheets first", {sheets}));
    }
    const std::string page = std::to_string(insert.afterPage);
    return Counted(insert.sheets, HostText("Summary one sheet after", {page}),
                   HostText("Summary sheets after", {sheets, page}));
}

std::string ChangePhrase(const std::vector<PageRange>& pages, const PageChange& change,
                         const std::string& paper) {
    const auto text = JoinedPhrases({change.where.sides ? SidesPhrase(*change.where.sides) : "",
                                     paper, Lightness(change.lightness),
                                     change.shifted ? HostText("Summary image shift") : ""});
    return text.empty() ? text : NamedPhrase(PhraseOfPages(pages), text);
}

std::string JobTypePhrase(const JobContents& contents) {
    const auto time = Moment(contents.releaseTime);
    switch (contents.kind) {
        case JobKind::held:
            return HostText("Summary held");
        case JobKind::saved:
            return contents.savedAndPrinted ? HostText("Summary saved and printed")
                                            : HostText("Summary saved");
        case JobKind::fax:
            return FaxPhrase(contents.fax);
        case JobKind::secure:
            return contents.hasPasscode ? HostText("Summary secure")
                                        : HostText("Summary secure without passcode");
        case JobKind::delayed:
            return time.empty() ? HostText("Summary delayed")
                                : HostText("Summary delayed until", {time});
        case JobKind::sample:
            return HostText("Summary sample");
        case JobKind::normal:
            return HostText("Summary normal");
    }
    return HostText("Summary other type", {std::to_string(static_cast<int>(contents.kind))});
}

std::string ExtraSheetsPhrase(const JobContents& contents) {
    const auto choose = [](ExtraSheets sheets, const std::string& blank,
                           const std::string& printed) {
        if (sheets == ExtraSheets::none) return std::string();
        return sheets == ExtraSheets::blank ? blank : printed;
    };
    return JoinedPhrases({contents.bannerSheet ? HostText("Summary banner sheet") : "",
                          choose(contents.slipSheets, HostText("Summary slip sheets blank"),
                                 HostText("Summary slip sheets printed")),
                          choose(contents.separators, HostText("Summary separators blank"),
                                 HostText("Summary separators printed"))});
}

std::string NotesPhrase(const JobContents& contents) {
    return JoinedPhrases({contents.startMessage ? HostText("Summary note at start") : "",
                          contents.bannerMessage ? HostText("Summary note on banner") : "",
                          contents.accountingNote ? HostText("Summary note for accounting") : ""});
}

}  // namespace kalmo
