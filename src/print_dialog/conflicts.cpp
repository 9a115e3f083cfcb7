#include "print_dialog/conflicts.h"

#include <algorithm>

#include "print_dialog/color_options.h"
#include "print_dialog/window_texts.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"

namespace kalmo {
namespace {

constexpr const char* kPaperSize = "PageSize";

/// What the job says itself; the file knows the rest.
std::vector<PPDSelection> ChosenInTickets(const PrintJobHost& host) {
    std::vector<PPDSelection> chosen;
    for (const PPDOptionTexts& option : host.description()->options) {
        chosen.push_back({option.keyword, host.ppdChoice(option.keyword)});
    }
    // Last, as with the server: it wins over the same thing by another name.
    chosen.push_back({kPaperSize, host.ppdChoice(kPaperSize)});
    std::erase_if(chosen, [](const PPDSelection& each) { return each.choice.empty(); });
    return chosen;
}

/// What the job cannot be without, whatever the printer would rather have: a booklet its two sides.
std::vector<std::string> KeptOptions(const PrintJobHost& host) {
    const bool booklet = host.hasPane() && FlagInTicket(host.printSettings(), kBookletLayoutKey);
    return booklet ? std::vector<std::string>{"Duplex"} : std::vector<std::string>{};
}

template <typename Rows>
std::string TextOf(const Rows& rows, const std::string& keyword) {
    const auto row = std::ranges::find(rows, keyword, [](const auto& r) { return r.keyword; });
    return row == rows.end() ? keyword : row->text;
}

NamedSelection Named(const PPDDescription& printer, const PPDSelection& keywords) {
    const auto& [option, choice] = keywords;
    if (option == kPaperSize) {
        const bool isTyped = choice == "Custom";
        return {keywords, HostText("Conflict paper"),
                isTyped ? HostText("Conflict paper typed") : TextOf(printer.papers, choice)};
    }
    const PPDOptionTexts* const known = FindOption(printer, option);
    if (!known) return {keywords, option, choice};
    return {keywords, known->text, TextOf(known->choices, choice)};
}

std::vector<NamedSelection> Named(const PPDDescription& printer,
                                  const std::vector<PPDSelection>& selections) {
    std::vector<NamedSelection> named;
    for (const PPDSelection& each : selections) named.push_back(Named(printer, each));
    return named;
}

std::string ConflictLine(const std::vector<NamedSelection>& together) {
    const auto word = [](const NamedSelection& each) {
        return HostText("Conflict choice", {each.option, each.choice});
    };
    std::string others;
    for (std::size_t i = 1; i < together.size(); ++i) {
        others =
            i == 1 ? word(together[i]) : HostText("Conflict choices", {others, word(together[i])});
    }
    return HostText("Conflict between", {word(together.front()), others});
}

}  // namespace

ConflictReport CheckConflicts(const PrintJobHost& host) {
    if (!host.description()) return {};
    const auto constraints = PPDConstraints::Open(host.printer().ppdPath, nullptr);
    if (!constraints) return {};
    const auto chosen = ChosenInTickets(host);
    ConflictReport report;
    for (const PPDConflict& conflict : constraints->conflicts(chosen)) {
        report.conflicts.push_back(Named(*host.description(), conflict));
    }
    if (report.conflicts.empty()) return report;
    if (const auto changes = constraints->resolution(chosen, KeptOptions(host))) {
        report.changes = Named(*host.description(), *changes);
    }
    return report;
}

std::vector<std::string> ConflictLines(const ConflictReport& report) {
    std::vector<std::string> lines;
    for (const auto& together : report.conflicts) lines.push_back(ConflictLine(together));
    return lines;
}

std::vector<std::string> ChangeLines(const ConflictReport& report) {
    std::vector<std::string> lines;
    for (const NamedSelection& change : report.changes) {
        lines.push_back(HostText("Conflict change", {change.option, change.choice}));
    }
    return lines;
}

}  // namespace kalmo
