// What the command line names is opened here: ticket file, document.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "print_dialog/command_line.h"
#include "print_dialog/print_job_host.h"
#include "print_dialog/private_copy.h"
#include "print_dialog/sheet_layout.h"

namespace kalmo {

/// The document as a file. Of standard input ("-") it is a private copy that goes with this object.
class InputDocument final {
public:
    /// Fails with a line that names the file when it cannot be read or does not start like a PDF
    /// file. An empty name opens nothing.
    Outcome open(const std::string& name);
    /// Empty when nothing is open.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// What messages call it.
    [[nodiscard]] const std::string& name() const { return name_; }

private:
    Outcome copyStandardInput();

    std::filesystem::path path_;
    std::string name_;
    std::shared_ptr<const PrivateCopy> copy_;
};

/// The sizes of its pages as they are shown; takes a while for a large document. Fails (no file
/// name in the error): damaged, no pages, a password.
Outcome InspectDocument(const std::filesystem::path& document, std::vector<PageSize>* pages);

/// Reads --ticket into the host, and sets the job's name. Fails with a line that names the file.
Outcome LoadInputs(const CommandLine& commandLine, PrintJobHost& host);

/// Writes the host's ticket to --write-ticket: mode 0600, or standard output for "-".
Outcome WriteTicket(const std::string& file, const PrintJobHost& host);

}  // namespace kalmo
