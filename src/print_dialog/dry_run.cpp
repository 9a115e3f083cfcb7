#include "print_dialog/dry_run.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <utility>

#include "job_ticket/attachment.h"
#include "print_dialog/conflicts.h"
#include "print_dialog/job_paper.h"
#include "print_dialog/job_summary.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr int kLongestOption = 2000;

/// All that there is to tell.
struct Rehearsal {
    const PrintJobHost& host;
    int pageCount = 0;
    JobSummary summary;
    JobOrder order;
    ConflictReport report;
};

std::string Section(const std::string& title, const std::vector<std::string>& lines) {
    std::string text = "\n" + title + "\n";
    for (const std::string& line : lines) text += "  " + line + "\n";
    return lines.empty() ? text + "  " + HostText("Summary none") + "\n" : text;
}

std::string AsText(const Rehearsal& job) {
    std::vector<std::string> options;
    for (const auto& [name, value] : job.order.options)
        options.push_back(ShownText(name + "=" + value, kLongestOption));
    auto conflicts = ConflictLines(job.report);
    for (auto& line : ChangeLines(job.report)) conflicts.push_back(std::move(line));
    return job.summary.text() + Section(HostText("Summary options"), options) +
           Section(HostText("Summary conflicts"), conflicts);
}

QJsonValue Json(const std::string& text) { return QString::fromStdString(text); }

template <typename Rows, typename Told>
QJsonArray Array(const Rows& rows, Told&& told) {
    QJsonArray array;
    for (const auto& row : rows) array.append(told(row));
    return array;
}

constexpr const char* kKinds[] = {"page", "front-cover", "insert", "back-cover"};
constexpr const char* kSides[] = {"", "one-sided", "two-sided-long-edge", "two-sided-short-edge"};

QJsonObject RunAsJson(const SheetRun& run, const std::vector<std::string>& papers) {
    return {{"kind", kKinds[static_cast<std::size_t>(run.kind)]},
            {"paper", Json(papers[static_cast<std::size_t>(run.paper)])},
            {"sides", kSides[static_cast<std::size_t>(run.sides)]},
            {"pages", Json(PageRangesText(run.pages))},
            {"sheets", static_cast<qint64>(run.sheets)}};
}

QJsonValue PlanAsJson(const JobSummary& summary) {
    const SheetPlan& plan = summary.plan;
    if (plan.sheets.empty()) return QJsonValue::Null;
    const auto run = [&summary](const SheetRun& each) { return RunAsJson(each, summary.papers); };
    return QJsonObject{{"sheets", static_cast<qint64>(plan.sheetsInAll())},
                       {"sheetsPerCopy", static_cast<qint64>(plan.sheetsPerCopy())},
                       {"printedSidesPerCopy", static_cast<qint64>(plan.printedSidesPerCopy())},
                       {"runs", Array(plan.runs(), run)}};
}

QJsonObject SelectionAsJson(const NamedSelection& selection) {
    return {{"option", Json(selection.keywords.option)},
            {"choice", Json(selection.keywords.choice)},
            {"optionText", Json(selection.option)},
            {"choiceText", Json(selection.choice)}};
}

QJsonValue DocumentAsJson(const Rehearsal& job) {
    if (job.pageCount == 0) return QJsonValue::Null;
    return QJsonObject{{"name", Json(job.host.jobName())}, {"pages", job.pageCount}};
}

QJsonObject OptionsAsJson(const JobOrder& order) {
    QJsonObject options;
    for (const auto& [name, value] : order.options)
        options.insert(QString::fromStdString(name), Json(value));
    return options;
}

std::string AsJson(const Rehearsal& job) {
    const auto* description = job.host.description();
    const auto row = [](const SummaryRow& each) {
        return QJsonObject{
            {"key", Json(each.key)}, {"name", Json(each.name)}, {"text", Json(each.text)}};
    };
    const auto conflict = [](const std::vector<NamedSelection>& each) {
        return QJsonObject{{"selections", Array(each, SelectionAsJson)}};
    };
    const QJsonObject object = {
        {"printer",
         QJsonObject{{"name", Json(job.host.printer().name)},
                     {"makeAndModel", Json(description ? description->makeAndModel : "")}}},
        {"document", DocumentAsJson(job)},
        {"copies", job.host.settings().copies},
        {"summary", Array(job.summary.rows, row)},
        {"plan", PlanAsJson(job.summary)},
        {"missing", Array(job.summary.missing, Json)},
        {"options", OptionsAsJson(job.order)},
        {"conflicts", Array(job.report.conflicts, conflict)},
        {"changes", Array(job.report.changes, SelectionAsJson)}};
    return QJsonDocument(object).toJson().toStdString();
}

}  // namespace

Outcome RehearseJob(const PrintJobHost& host, const JobRequest& request,
                    const std::vector<PageSize>& pages, DryRunForm form, DryRun* result) {
    Rehearsal job{.host = host,
                  .pageCount = static_cast<int>(pages.size()),
                  .summary = SummarizeJob(host, pages),
                  .report = CheckConflicts(host)};
    if (const auto made = MakeJobOrder(host, request, &job.order); !made) return made;
    // The digest is that of a ticket that no job will carry.
    std::erase_if(job.order.options,
                  [](const auto& option) { return option.first == job_ticket::kDigestOption; });
    result->output = form == DryRunForm::json ? AsJson(job) : AsText(job);
    result->printable = job.report.conflicts.empty() && job.summary.missing.empty();
    return {};
}

}  // namespace kalmo
