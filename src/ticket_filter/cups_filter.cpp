// kalmoticket: the CUPS filter that lets a job through only with the settings it was sent with.
//
// Called as cupsd calls filters: kalmoticket JOB USER TITLE COPIES OPTIONS [FILE], the document on
// standard input without FILE. It goes to standard output without its ticket. The ticket goes to
// the file that KALMO_TICKET_FILE names, if it does; no such file afterwards means no ticket.
#include <cups/cups.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "job_ticket/attachment.h"
#include "job_ticket/private_file.h"
#include "temporary_folder.h"

namespace kalmo {
namespace {

using job_ticket::FileStream;
using job_ticket::Result;
using std::filesystem::path;

struct FilterCall {
    const char* options = "";
    path file;  // empty: standard input
};

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// Absent: the job has no ticket. Never absent when the option is there in any form.
std::optional<std::string> DigestOf(const char* text) {
    cups_option_t* options = nullptr;
    const int count = cupsParseOptions(text, 0, &options);
    std::optional<std::string> digest;
    if (const char* value = cupsGetOption(job_ticket::kDigestOption, count, options)) {
        digest = value;
    } else if (std::strstr(text, job_ticket::kDigestOption)) {
        // A line end in an earlier option ends the parsing: that must not lift the protection.
        digest = "";
    }
    cupsFreeOptions(count, options);
    return digest;
}

Result Copy(std::FILE* from, std::FILE* to) {
    std::vector<char> block(1u << 16);
    while (const std::size_t size = std::fread(block.data(), 1, block.size(), from)) {
        if (std::fwrite(block.data(), 1, size, to) != size) break;
    }
    if (std::ferror(from)) return {"The document cannot be read."};
    if (std::fflush(to) != 0 || std::ferror(to)) return {"The document cannot be passed on."};
    return {};
}

Result CopyFile(const path& file, std::FILE* to) {
    const FileStream from(std::fopen(file.c_str(), "rbe"));
    return from ? Copy(from.get(), to) : Result{"The document cannot be read."};
}

Result PassUnchanged(const FilterCall& call) {
    return call.file.empty() ? Copy(stdin, stdout) : CopyFile(call.file, stdout);
}

Result SpoolStandardInput(const path& file) {
    const FileStream to(std::fopen(file.c_str(), "wbe"));
    return to ? Copy(stdin, to.get()) : Result{"There is no room for temporary files."};
}

Result HandOverTicket(const std::string& ticket) {
    const std::string file = Environment("KALMO_TICKET_FILE");
    return file.empty() ? Result{} : job_ticket::WritePrivateFile(file, ticket);
}

Result PassWithoutTicket(FilterCall call, const std::string& digest) {
    const TemporaryFolder folder;
    if (folder.path().empty()) return {"There is no room for temporary files."};
    if (call.file.empty()) {
        call.file = folder.path() / "submitted.pdf";
        if (Result spooled = SpoolStandardInput(call.file); !spooled) return spooled;
    }
    const path clean = folder.path() / "clean.pdf";
    job_ticket::TakenOut taken;
    Result result = job_ticket::TakeTicketOut(call.file, digest, clean, &taken);
    if (result) result = HandOverTicket(*taken.ticket);
    return result ? CopyFile(clean, stdout) : result;
}

void RemoveEarlierTicket() {
    const std::string file = Environment("KALMO_TICKET_FILE");
    if (!file.empty()) unlink(file.c_str());
}

Result Filter(const FilterCall& call) {
    RemoveEarlierTicket();
    // Banner pages are the server's own and carry the job's options, but no attachment.
    if (Environment("CUPS_FILETYPE") == "job-sheet") return PassUnchanged(call);
    const auto digest = DigestOf(call.options);
    return digest ? PassWithoutTicket(call, *digest) : PassUnchanged(call);
}

}  // namespace
}  // namespace kalmo

int main(int argc, char** argv) try {
    if (argc != 6 && argc != 7) {
        std::fputs("ERROR: Usage: kalmoticket job user title copies options [file]\n", stderr);
        return 1;
    }
    umask(077);
    std::signal(SIGPIPE, SIG_IGN);
    const auto result = kalmo::Filter({argv[5], argc == 7 ? argv[6] : ""});
    if (!result) std::fprintf(stderr, "ERROR: Not printed. %s\n", result.error.c_str());
    return result ? 0 : 1;
} catch (const std::exception&) {
    std::fputs("ERROR: Not printed. The server lacks memory or threads.\n", stderr);
    return 1;
}
