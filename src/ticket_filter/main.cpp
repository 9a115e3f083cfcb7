// kalmo-ticket: takes the ticket out of a submitted document, for filters and for people.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <iostream>

#include "job_ticket/attachment.h"
#include "job_ticket/private_file.h"

namespace kalmo {
namespace {

enum ExitCode { kDone = 0, kRefused = 1, kUsage = 2 };

struct CommandLine {
    std::string document;
    std::optional<std::string> digest;
    std::string ticketFile;
    std::string documentFile;
};

void Describe(CLI::App& app, CommandLine* line) {
    app.add_option("DOCUMENT", line->document, "The PDF as it was submitted")->required();
    auto* digest = app.add_option("--digest", line->digest,
                                  "The job option com.kalmo.print.ticket. Without it the document "
                                  "passes unchanged");
    app.add_option("--ticket", line->ticketFile, "Write the ticket here")->needs(digest);
    app.add_option("--document", line->documentFile, "Write the document without its ticket here");
    app.set_version_flag("--version", "kalmo-ticket " KALMO_VERSION);
    app.footer(
        "Exit code: 0 done, 1 refused (settings missing or changed, file unreadable or "
        "unwritable), 2 usage.");
}

int Refuse(const std::string& file, const std::string& reason) {
    std::cerr << "kalmo-ticket: " << file << ": " << reason << '\n';
    return kRefused;
}

int TakeOut(const CommandLine& line) {
    job_ticket::TakenOut taken;
    const auto result =
        job_ticket::TakeTicketOut(line.document, line.digest, line.documentFile, &taken);
    if (!result) return Refuse(line.document, result.error);
    if (line.ticketFile.empty()) return kDone;
    const auto written = job_ticket::WritePrivateFile(line.ticketFile, *taken.ticket);
    return written ? kDone : Refuse(line.ticketFile, written.error);
}

}  // namespace
}  // namespace kalmo

int main(int argc, char** argv) try {
    CLI::App app{"Takes the ticket out of a document that kalmo-print submitted."};
    kalmo::CommandLine line;
    kalmo::Describe(app, &line);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kalmo::kDone : kalmo::kUsage;
    }
    return kalmo::TakeOut(line);
} catch (const std::exception& problem) {
    std::fprintf(stderr, "kalmo-ticket: %s\n", problem.what());
    return kalmo::kRefused;
}
