#include <algorithm>
#include <cerrno>

#include "job_ticket/attachment.h"
#include "job_ticket/private_file.h"
#include "print_dialog/job_delivery.h"
#include "print_dialog/outcome.h"
#include "print_dialog/page_selection.h"
#include "print_dialog/private_folder.h"
#include "print_dialog/reasons.h"
#include "print_dialog/text_limits.h"

namespace kalmo {
namespace {

constexpr std::size_t kLongestStem = 200;
constexpr int kMostSameNames = 9999;

JobResult Failed(std::string message) {
    return {.end = JobResult::End::failed, .message = std::move(message)};
}

/// The job's name without what a file name cannot hold.
std::string FileStem(std::string title) {
    std::ranges::replace_if(
        title, [](unsigned char c) { return c < 0x20 || c == '/' || c == 0x7F; }, '_');
    if (title.ends_with(".pdf") || title.ends_with(".PDF")) title.resize(title.size() - 4);
    title.erase(0, title.find_first_not_of('.'));
    return title.empty() ? "document" : Shortened(std::move(title), kLongestStem);
}

/// As CopyPages: no name in the error.
Outcome CopyDocument(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code error;
    std::filesystem::copy_file(from, to, error);
    if (!error) std::filesystem::permissions(to, std::filesystem::perms(0600), error);
    return {error ? error.message() : ""};
}

/// Both files of the job, whole, in the private folder.
Outcome Prepare(const JobOrder& order, const JobResult& files) {
    auto document = order.document;
    if (!order.pages.empty()) {
        document = files.document.parent_path() / "pages.pdf";
        const auto cut = CopyPages(order.document, order.pages, document);
        if (!cut) return {order.name + ": " + cut.error};
    }
    if (order.ticket.empty()) {
        const auto copied = CopyDocument(document, files.document);
        return {copied ? "" : order.name + ": " + copied.error};
    }
    const auto attached = job_ticket::AttachTicket(document, order.ticket, files.document);
    if (!attached) return {order.name + ": " + ReasonInWords(attached.error)};
    const auto written = job_ticket::WritePrivateFile(files.ticket, order.ticket);
    return {written ? "" : order.folder.string() + ": " + ReasonInWords(written.error)};
}

JobResult Named(const std::filesystem::path& folder, const std::string& stem, bool withTicket) {
    JobResult files;
    files.document = folder / (stem + ".pdf");
    if (withTicket) files.ticket = folder / (stem + ".ticket.plist");
    return files;
}

/// Both under one name, or neither; false with errno.
bool MoveBoth(const JobResult& from, const JobResult& to) {
    if (!MoveWithoutReplacing(from.document, to.document)) return false;
    if (from.ticket.empty() || MoveWithoutReplacing(from.ticket, to.ticket)) return true;
    const int number = errno;
    // Back to where it came from, so that the next name can be tried.
    std::error_code ignored;
    std::filesystem::rename(to.document, from.document, ignored);
    errno = number;
    return false;
}

/// "NAME", else "NAME 2", "NAME 3": what lies in the folder stays as it is.
JobResult GiveNames(const JobOrder& order, const JobResult& prepared) {
    const auto stem = FileStem(order.title);
    for (int number = 1; number <= kMostSameNames; ++number) {
        const auto name = number == 1 ? stem : stem + " " + std::to_string(number);
        auto files = Named(order.folder, name, !order.ticket.empty());
        if (MoveBoth(prepared, files)) {
            files.end = JobResult::End::printed;
            return files;
        }
        if (errno != EEXIST) break;
    }
    return Failed(SystemReason(order.folder / (stem + ".pdf"), errno));
}

}  // namespace

JobResult DeliverToFolder(const JobOrder& order, const DeliveryControl& control) {
    control.progress(JobStage::preparing, 0);
    if (control.state.cancelled()) return {.end = JobResult::End::cancelled};
    const PrivateFolder temporary(order.folder);
    if (temporary.path().empty()) return Failed(SystemReason(order.folder, errno));
    const auto prepared = Named(temporary.path(), "job", !order.ticket.empty());
    if (const auto outcome = Prepare(order, prepared); !outcome) return Failed(outcome.error);
    if (!control.state.commit()) return {.end = JobResult::End::cancelled};
    return GiveNames(order, prepared);
}

}  // namespace kalmo
