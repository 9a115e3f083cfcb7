#include "print_dialog/job_summary.h"

#include <algorithm>
#include <map>

#include "print_dialog/color_options.h"
#include "print_dialog/job_contents.h"
#include "print_dialog/summary_phrases.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

/// So many rows are told of one kind; a ticket may have thousands.
constexpr std::size_t kMostRows = 24;
/// Choices that do nothing, or leave it to the printer.
constexpr std::string_view kSilentChoices[] = {"None", "Auto"};

struct OptionRow {
    const char* option;
    const char* key;
};
constexpr OptionRow kFinishing[] = {{"StapleLocation", "staple"},
                                    {"KLPunch", "punch"},
                                    {"KLFold", "fold"},
                                    {"OutputBin", "output-tray"}};

class Summary final {
public:
    Summary(const PrintJobHost& host, int pageCount)
        : host_(host), pageCount_(pageCount), contents_(ReadJobContents(host, pageCount)) {}

    JobSummary take() {
        addPrinterAndDocument();
        if (host_.hasPane()) addJobType();
        if (isFax()) {
            addNotes();
            return std::move(summary_);
        }
        summary_.plan = PlanSheets(contents_.plan);
        for (const JobPaper& paper : contents_.papers) summary_.papers.push_back(paper.text());
        addSheets();
        addPapers();
        addFinishing();
        addSpecialPages();
        addWatermark();
        addExtraSheets();
        addNotes();
        return std::move(summary_);
    }

private:
    [[nodiscard]] bool isFax() const { return contents_.kind == JobKind::fax; }
    [[nodiscard]] const std::string& paperText(int paper) const {
        return summary_.papers[static_cast<std::size_t>(paper)];
    }

    /// Nothing without a text.
    void add(const char* key, const std::string& name, const std::string& text) {
        if (!text.empty()) summary_.rows.push_back({name, text, key});
    }
    /// As add, for rows of which there may be very many: the last one counts those left out.
    void addSome(const char* key, const std::string& name, const std::vector<std::string>& texts) {
        const std::size_t shown = texts.size() > kMostRows ? kMostRows - 1 : texts.size();
        for (std::size_t i = 0; i < shown; ++i) add(key, name, texts[i]);
        if (shown < texts.size())
            add(key, name, HostText("Summary more rows", {std::to_string(texts.size() - shown)}));
    }

    void addPrinterAndDocument() {
        const auto* description = host_.description();
        add("printer", HostText("Summary printer"),
            JoinedPhrases({ShownText(host_.printer().name),
                           description ? ShownText(description->makeAndModel) : ""}));
        if (pageCount_ > 0) {
            add("document", HostText("Summary document"),
                JoinedPhrases(
                    {ShownText(host_.jobName()), DocumentPages(contents_.plan.pages, pageCount_)}));
        }
    }

    void addJobType() {
        add("job-type", HostText("Summary job type"), JobTypePhrase(contents_));
        if (contents_.kind == JobKind::secure && !contents_.hasPasscode)
            summary_.missing.emplace_back("passcode");
        if (isFax() && contents_.fax.recipients == 0) summary_.missing.emplace_back("recipients");
    }

    void addSheets() {
        const JobSettings& settings = host_.settings();
        const PlanInput& plan = contents_.plan;
        add("copies", HostText("Summary copies"), CopiesPhrase(settings));
        // The plan knows booklets on both sides; another one is for the printer to make sense of.
        const bool odd = plan.booklet && plan.sides == PrintedSides::one;
        if (!summary_.plan.sheets.empty() && !odd)
            add("sheets", HostText("Summary sheets"), SheetsPhrase(summary_.plan));
        if (plan.booklet) {
            add("booklet", HostText("Summary booklet"),
                odd ? HostText("Summary booklet two-sided off")
                    : HostText("Summary booklet layout"));
        } else {
            add("sides", HostText("Summary sides"), SidesPhrase(plan.sides));
        }
        // A side of a booklet holds two places.
        const int places = plan.booklet ? 2 : 1;
        if (settings.pagesPerSheet > 1)
            add("pages-per-side", HostText("Summary pages per side"),
                std::to_string(places * settings.pagesPerSheet));
    }

    /// Where the document's pages lie on different papers, each paper with its pages.
    void addPapers() {
        std::map<int, std::vector<int>> pagesOn;
        for (const PlannedSheet& sheet : summary_.plan.sheets) {
            if (sheet.kind == SheetKind::page) AppendPages(sheet, pagesOn[sheet.paper]);
        }
        const auto name = HostText("Summary paper");
        if (pagesOn.size() < 2) {
            return add("paper", name, paperText(pagesOn.empty() ? 0 : pagesOn.begin()->first));
        }
        std::vector<std::pair<std::vector<PageRange>, int>> inOrder;
        for (auto& [paper, pages] : pagesOn)
            inOrder.emplace_back(RangesOfPages(std::move(pages)), paper);
        std::ranges::sort(inOrder, {}, [](const auto& each) { return each.first.front().first; });
        std::vector<std::string> texts;
        for (const auto& [pages, paper] : inOrder)
            texts.push_back(NamedPhrase(PhraseOfPages(pages), paperText(paper)));
        addSome("paper", name, texts);
    }

    void addOption(const char* option, const char* key) {
        const auto choice = EffectiveChoice(host_, option);
        if (choice.empty() || std::ranges::find(kSilentChoices, choice) != std::end(kSilentChoices))
            return;
        const auto* known = FindOption(*host_.description(), option);
        add(key, ShownText(known->text), ShownChoice(host_, option, choice));
    }

    void addFinishing() {
        if (!host_.description()) return;
        addOption(ColorOption(*host_.description()).c_str(), "color");
        for (const OptionRow& row : kFinishing) addOption(row.option, row.key);
    }

    void addCover(const std::optional<PlanCover>& cover, SheetKind kind, const std::string& name) {
        if (!cover) return;
        const auto& sheets = summary_.plan.sheets;
        const auto sheet = std::ranges::find(sheets, kind, &PlannedSheet::kind);
        add(kind == SheetKind::frontCover ? "front-cover" : "back-cover", name,
            JoinedPhrases({paperText(cover->paper),
                           CoverPhrase(*cover, sheet == sheets.end() ? nullptr : &*sheet)}));
    }

    void addSpecialPages() {
        const PlanInput& plan = contents_.plan;
        addCover(plan.frontCover, SheetKind::frontCover, HostText("Summary front cover"));
        if (!plan.booklet)
            addCover(plan.backCover, SheetKind::backCover, HostText("Summary back cover"));
        if (plan.booklet && !(plan.inserts.empty() && plan.exceptions.empty())) {
            return add("special-pages", HostText("Summary special pages"),
                       HostText("Summary left out of booklet"));
        }
        std::vector<std::string> inserts, exceptions;
        for (const PlanInsert& insert : StandingInserts(plan))
            inserts.push_back(NamedPhrase(InsertPhrase(insert), paperText(insert.paper)));
        for (const PageChange& change : contents_.changes) {
            const int paper = change.where.paper;
            const auto pages = PrintedOf(change.where.pages, plan);
            const auto phrase = ChangePhrase(pages, change, paper > 0 ? paperText(paper) : "");
            if (!pages.empty() && !phrase.empty()) exceptions.push_back(phrase);
        }
        addSome("insert", HostText("Summary insert"), inserts);
        addSome("exception", HostText("Summary exception"), exceptions);
    }

    void addWatermark() {
        if (contents_.watermark.empty()) return;
        add("watermark", HostText("Summary watermark"),
            JoinedPhrases({contents_.watermark, contents_.watermarkOnPage1Only
                                                    ? HostText("Summary on page 1")
                                                    : HostText("Summary on all pages")}));
    }

    void addExtraSheets() {
        add("extra-sheets", HostText("Summary extra sheets"), ExtraSheetsPhrase(contents_));
    }
    void addNotes() { add("job-notes", HostText("Summary notes"), NotesPhrase(contents_)); }

    const PrintJobHost& host_;
    const int pageCount_;
    const JobContents contents_;
    JobSummary summary_;
};

}  // namespace

std::string JobSummary::text() const {
    std::string lines;
    for (const SummaryRow& row : rows) lines += NamedPhrase(row.name, row.text) + "\n";
    return lines;
}

JobSummary SummarizeJob(const PrintJobHost& host, const std::vector<PageSize>& pages) {
    return Summary(host, static_cast<int>(pages.size())).take();
}

}  // namespace kalmo
