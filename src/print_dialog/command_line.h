// The command line of kalmo-print and its exit codes.
#pragma once

#include <string>
#include <variant>
#include <vector>

namespace kalmo {

enum ExitCode : int { kExitDone = 0, kExitFailed = 1, kExitUsage = 2, kExitCancelled = 3 };

/// How far a run without a window goes before it turns back.
enum class Phase { initialize, open };

/// Texts are empty where an option is not given.
struct CommandLine {
    std::string document;  // a PDF file; "-": standard input
    std::string printer;   // a queue
    std::string ppd;       // a PPD file instead
    std::string title;
    std::string ticket;
    std::string preset;       // a name
    std::string writeTicket;  // "-": standard output
    std::string output;       // a folder instead of a queue
    std::vector<std::string> panels;
    std::string colorScheme = "auto";  // "light", "dark"; "auto": the desktop's
    Phase phase = Phase::open;
    bool noDialog = false;
    bool printFirstFrame = false;
    bool listPrinters = false;
    bool printAnyway = false;  // without a window: also what conflicts
    bool dryRun = false;       // tell what would be printed
    bool json = false;         // with dryRun: for programs

    /// The job's name: the title, else the document's file name; empty without either.
    [[nodiscard]] std::string jobName() const;
};

/// The options, or the exit code when there is nothing more to do: help and version go to standard
/// output, what is wrong to standard error in one line.
[[nodiscard]] std::variant<CommandLine, ExitCode> ParseCommandLine(int argc,
                                                                   const char* const* argv);

/// "kalmo-print: MESSAGE" as one line on standard error.
void PrintMessage(const std::string& message);

}  // namespace kalmo
