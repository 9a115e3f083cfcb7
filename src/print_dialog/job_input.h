// What the command line names is opened here: ticket file, document, printer.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "print_dialog/command_line.h"
#include "print_dialog/print_job_host.h"

namespace kalmo {

/// The document as a file. Standard input ("-") is spooled into a private temporary file that goes
/// with this object.
class InputDocument final {
public:
    InputDocument() = default;
    ~InputDocument();
    InputDocument(const InputDocument&) = delete;
    InputDocument& operator=(const InputDocument&) = delete;

    /// Fails with a line that names the file when it cannot be read or is no PDF file. An empty
    /// name opens nothing.
    Outcome open(const std::string& name);
    /// Empty when nothing is open.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
    bool temporary_ = false;
};

/// Reads --ticket into the host, and sets the job's name. Fails with a line that names the file.
Outcome LoadInputs(const CommandLine& commandLine, PrintJobHost& host);

/// Writes the host's ticket to --write-ticket: mode 0600, or standard output for "-".
Outcome WriteTicket(const std::string& file, const PrintJobHost& host);

}  // namespace kalmo
