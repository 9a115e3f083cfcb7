// What the command line names is opened here: ticket file, document.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "print_dialog/command_line.h"
#include "print_dialog/print_job_host.h"
#include "print_dialog/private_folder.h"

namespace kalmo {

/// The document as a file. Standard input ("-") is spooled into a private temporary file that goes
/// with this object.
class InputDocument final {
public:
    /// Fails with a line that names the file when it cannot be read or does not start like a PDF
    /// file. An empty name opens nothing.
    Outcome open(const std::string& name);
    /// Empty when nothing is open.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    Outcome spoolStandardInput();

    std::filesystem::path path_;
    std::unique_ptr<PrivateFolder> spool_;
};

struct DocumentFacts {
    int pageCount = 0;
    Orientation orientation = Orientation::portrait;  // the first page's, as it is shown
};

/// Reads the document's structure; takes a while for a large one. Fails with a line that names the
/// file: damaged, no pages, a password.
Outcome InspectDocument(const std::filesystem::path& document, DocumentFacts* facts);

/// Reads --ticket into the host, and sets the job's name. Fails with a line that names the file.
Outcome LoadInputs(const CommandLine& commandLine, PrintJobHost& host);

/// Writes the host's ticket to --write-ticket: mode 0600, or standard output for "-".
Outcome WriteTicket(const std::string& file, const PrintJobHost& host);

}  // namespace kalmo
