#include "print_dialog/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <map>

#include "print_dialog/print_job_host.h"
#include "print_dialog/text_limits.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

void AddOptions(CLI::App& app, CommandLine& into) {
    const std::map<std::string, Phase> phases = {{"initialize", Phase::initialize},
                                                 {"open", Phase::open}};
    app.add_option("document", into.document, "The PDF file to print; - reads standard input")
        ->option_text("[DOCUMENT.pdf]");
    auto* printer = app.add_option("-d,--printer", into.printer, "A CUPS queue");
    auto* ppd = app.add_option("--ppd", into.ppd, "A PPD file instead of a queue");
    app.add_option("-t,--title", into.title, "Job name (default: the document's file name)");
    auto* ticket = app.add_option("--ticket", into.ticket, "Start from this ticket file");
    app.add_option("--preset", into.preset, "Start from the settings saved under this name")
        ->excludes(ticket);
    app.add_option("--write-ticket", into.writeTicket,
                   "Write the resulting ticket (- is standard output)");
    app.add_option("--output", into.output, "Print into this folder instead of a queue");
    auto* noDialog = app.add_flag(
        "--no-dialog", into.noDialog,
        "Show no window; print, unless there is no document or only a ticket is asked for");
    app.add_flag("--print-anyway", into.printAnyway,
                 "With --no-dialog: print choices that the printer cannot do together, too")
        ->needs(noDialog);
    app.add_option("--phase", into.phase, "With --no-dialog: stop before or after Open")
        ->transform(CLI::Transformer(phases))
        ->needs(noDialog)
        ->option_text("initialize|open");
    app.add_option("--panels", into.panels, "Further panels: special-pages, job-notes")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->option_text("LIST");
    app.add_flag("--print-first-frame", into.printFirstFrame,
                 "Once the dialog has painted, write when and how much memory, and exit")
        ->excludes(noDialog);
    app.add_option("--color-scheme", into.colorScheme, "The window's colors (default auto)")
        ->check(CLI::IsMember({"auto", "light", "dark", "contrast", "dark-contrast"}))
        ->option_text("auto|light|dark|contrast|dark-contrast");
    auto* dryRun = app.add_flag(
        "--dry-run", into.dryRun,
        "Print nothing; tell what would come out, with which options, and what conflicts");
    for (const char* contrary : {"--write-ticket", "--print-first-frame"}) {
        dryRun->excludes(app.get_option(contrary));
    }
    app.add_flag("--json", into.json, "With --dry-run: for programs")->needs(dryRun);
    app.add_flag("--list-printers", into.listPrinters,
                 "List the queues, and whether each has a pane or why not, and exit");
    app.set_version_flag("--version", "kalmo-print " KALMO_VERSION);
    app.footer(
        "Without a window, a job with choices that the printer cannot do together is refused, and\n"
        "standard error says what does not go together and what to change; see --print-anyway.\n\n"
        "Exit code: 0 done, 1 failed or refused, 2 usage or unreadable input, 3 canceled.");
    printer->excludes(ppd);
    for (auto* option : {printer, ppd, app.get_option("--ticket"), app.get_option("--preset"),
                         app.get_option("--write-ticket"), app.get_option("--output")}) {
        option->check([](const std::string& text) {
            return text.empty() ? std::string("The value is empty") : std::string();
        });
    }
}

/// Qt's own, which it takes away itself when the application starts: a window from right to left.
constexpr std::string_view kMirrored = "-reverse";

}  // namespace

std::string CommandLine::jobName() const {
    if (!title.empty() || document == "-") return title;
    return std::filesystem::path(document).filename().string();
}

std::variant<CommandLine, ExitCode> ParseCommandLine(int argc, const char* const* argv) {
    CLI::App app("Prints a PDF file on a Kalmo printer, with all that the printer can do.",
                 "kalmo-print");
    CommandLine result;
    AddOptions(app, result);
    std::vector<const char*> arguments(argv, argv + argc);
    std::erase(arguments, kMirrored);
    try {
        app.parse(static_cast<int>(arguments.size()), arguments.data());
    } catch (const CLI::Success& wish) {  // help or version
        app.exit(wish, std::cout, std::cout);
        return kExitDone;
    } catch (const CLI::Error& error) {
        PrintMessage(std::string(error.what()) + "; see kalmo-print --help");
        return kExitUsage;
    }
    for (const std::string& panel : result.panels) {
        if (PanelInterfaceName(panel)) continue;
        PrintMessage(HostText("No such panel", {panel}));
        return kExitUsage;
    }
    return result;
}

void PrintMessage(const std::string& message) {
    // Names of files and a server's words must not steer a terminal.
    std::fprintf(stderr, "kalmo-print: %s\n", WithoutControls(message).c_str());
}

}  // namespace kalmo
