#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <utility>

#include "job_ticket/attachment.h"
#include "print_dialog/job_delivery.h"
#include "print_dialog/job_readback.h"
#include "print_dialog/outcome.h"
#include "print_dialog/page_selection.h"
#include "print_dialog/print_server.h"
#include "print_dialog/private_folder.h"
#include "print_dialog/reasons.h"
#include "print_dialog/text_limits.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

/// The most that the protocol allows for a name.
constexpr std::size_t kLongestJobName = 255;

JobResult Failed(std::string message) {
    return {.end = JobResult::End::failed, .message = std::move(message)};
}

JobResult Cancelled() { return {.end = JobResult::End::cancelled}; }

/// A file to be sent, closed with this object; it needs its name no longer.
class OpenDocument final {
public:
    explicit OpenDocument(const std::filesystem::path& path)
        : file_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        struct stat status = {};
        if (file_ >= 0 && fstat(file_, &status) == 0) size_ = status.st_size;
    }
    ~OpenDocument() {
        if (file_ >= 0) close(file_);
    }
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;
    [[nodiscard]] bool isOpen() const { return file_ >= 0; }
    [[nodiscard]] off_t size() const { return size_; }
    [[nodiscard]] ssize_t read(char* buffer, std::size_t room) const {
        return ::read(file_, buffer, room);
    }

private:
    int file_;
    off_t size_ = 0;
};

/// A job on the server that goes again unless it is kept.
class ServerJob final {
public:
    ServerJob(const JobOrder& order, int id) : order_(order), id_(id) {}
    ~ServerJob() {
        if (!kept_) cancel();
    }
    ServerJob(const ServerJob&) = delete;
    ServerJob& operator=(const ServerJob&) = delete;
    void keep() { kept_ = true; }

private:
    /// On a connection of its own: the job's may be in the middle of the document.
    void cancel() const {
        std::string ignored;
        const auto http = ConnectToServer(Confidentiality::asConfigured, kCancelSilence, &ignored);
        if (!http) return;
        auto request = NewRequest(IPP_OP_CANCEL_JOB, order_.queue);
        ippAddInteger(request.get(), IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", id_);
        ippAddBoolean(request.get(), IPP_TAG_OPERATION, "purge-job", 1);
        (void)Ask(http.get(), std::move(request), QueueResource(order_.queue), &ignored);
    }

    const JobOrder& order_;
    int id_;
    bool kept_ = false;
};

/// The new job's number; 0 with a line for the user in `*error`.
int CreateJob(http_t* http, const JobOrder& order, std::string* error) {
    auto request = NewRequest(IPP_OP_CREATE_JOB, order.queue);
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", nullptr,
                 Shortened(order.title, kLongestJobName).c_str());
    EncodeJobOptions(order, request.get());
    const auto answer = Ask(http, std::move(request), QueueResource(order.queue), error);
    if (!answer) return 0;
    return ippGetInteger(ippFindAttribute(answer.get(), "job-id", IPP_TAG_INTEGER), 0);
}

IppMessage SendDocumentRequest(const JobOrder& order, int job) {
    auto request = NewRequest(IPP_OP_SEND_DOCUMENT, order.queue);
    ippAddInteger(request.get(), IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", job);
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_MIMETYPE, "document-format", nullptr,
                 CUPS_FORMAT_PDF);
    ippAddBoolean(request.get(), IPP_TAG_OPERATION, "last-document", 1);
    return request;
}

/// As long as it lives, a wait on the connection ends soon after the job is cancelled.
class CancellableWait final {
public:
    CancellableWait(http_t* http, const DeliveryState& state) : http_(http), state_(state) {
        httpSetTimeout(http, kStepSeconds, Continue, this);
    }
    ~CancellableWait() { LimitSilence(http_, kSendSilence); }
    CancellableWait(const CancellableWait&) = delete;
    CancellableWait& operator=(const CancellableWait&) = delete;

private:
    static constexpr double kStepSeconds = 0.2;

    /// After each step of silence. libcups may have connected anew meanwhile.
    static int Continue(http_t* http, void* wait) {
        const auto silent = static_cast<double>(std::time(nullptr) - httpGetActivity(http));
        return !static_cast<CancellableWait*>(wait)->state_.cancelled() && silent < kSendSilence;
    }

    http_t* http_;
    const DeliveryState& state_;
};

enum class Sent { all, cancelled, broken };

Sent SendBytes(http_t* http, const OpenDocument& document, const DeliveryControl& control) {
    std::array<char, 16384> buffer;
    off_t done = 0;
    for (;;) {
        if (control.state.cancelled()) return Sent::cancelled;
        const auto count = document.read(buffer.data(), buffer.size());
        if (count == 0) return Sent::all;
        if (count < 0 ||
            cupsWriteRequestData(http, buffer.data(), static_cast<std::size_t>(count)) !=
                HTTP_STATUS_CONTINUE) {
            return Sent::broken;
        }
        done += count;
        control.progress(JobStage::sending,
                         static_cast<int>(done * 100 / std::max<off_t>(document.size(), 1)));
    }
}

JobResult SendDocument(http_t* http, const JobOrder& order, int job, const OpenDocument& document,
                       const DeliveryControl& control) {
    const CancellableWait wait(http, control.state);
    const auto resource = QueueResource(order.queue);
    const auto request = SendDocumentRequest(order, job);
    if (cupsSendRequest(http, request.get(), resource.c_str(), CUPS_LENGTH_VARIABLE) !=
        HTTP_STATUS_CONTINUE) {
        return Failed(RefusalLine(http, nullptr));
    }
    // libcups may have connected anew meanwhile, to whoever is there now.
    if (JobConfidentiality(cupsServer(), order.secret) == Confidentiality::encrypted) {
        if (auto why = WhyNotConfidential(http, cupsServer()); !why.empty()) return Failed(why);
    }
    const auto sent = SendBytes(http, document, control);
    if (sent == Sent::cancelled) return Cancelled();
    if (sent == Sent::broken) return Failed(SilentServerLine());
    const IppMessage answer(cupsGetResponse(http, resource.c_str()));
    if (auto refusal = RefusalLine(http, answer.get()); !refusal.empty()) return Failed(refusal);
    if (!control.state.commit()) return Cancelled();
    return {.end = JobResult::End::printed, .jobID = job};
}

/// The document as it is sent: with its ticket in the temporary folder, or the user's own file.
Outcome PrepareDocument(const JobOrder& order, const PrivateFolder& temporary,
                        std::filesystem::path* prepared) {
    *prepared = order.document;
    if (order.ticket.empty() && order.pages.empty()) return {};
    if (temporary.path().empty()) return {SystemReason(HostText("Temporary folder"), errno)};
    if (!order.pages.empty()) {
        *prepared = temporary.path() / "pages.pdf";
        const auto cut = CopyPages(order.document, order.pages, *prepared);
        if (!cut) return {order.name + ": " + cut.error};
    }
    if (order.ticket.empty()) return {};
    const auto document = std::exchange(*prepared, temporary.path() / "job.pdf");
    const auto attached = job_ticket::AttachTicket(document, order.ticket, *prepared);
    return {attached ? "" : order.name + ": " + ReasonInWords(attached.error)};
}

JobResult Submit(const JobOrder& order, const OpenDocument& document,
                 const DeliveryControl& control) {
    std::string error;
    auto http =
        ConnectToServer(JobConfidentiality(cupsServer(), order.secret), kSendSilence, &error);
    if (!http) return Failed(error);
    const int id = CreateJob(http.get(), order, &error);
    if (id == 0) return Failed(error);
    ServerJob job(order, id);
    auto result = SendDocument(http.get(), order, id, document, control);
    if (control.state.cancelled()) return Cancelled();
    if (result.end != JobResult::End::printed) return result;
    job.keep();
    result.differences = JobDifferences(order, id, std::move(http));
    return result;
}

}  // namespace

JobResult DeliverToQueue(const JobOrder& order, const DeliveryControl& control) {
    control.progress(JobStage::preparing, 0);
    if (control.state.cancelled()) return Cancelled();
    const PrivateFolder temporary(TemporaryFolder());
    std::filesystem::path prepared;
    if (const auto outcome = PrepareDocument(order, temporary, &prepared); !outcome) {
        return Failed(outcome.error);
    }
    if (control.state.cancelled()) return Cancelled();
    const OpenDocument document(prepared);
    if (!document.isOpen()) return Failed(SystemReason(prepared, errno));
    // However the program ends while a server keeps us waiting, nothing stays behind.
    temporary.remove();
    control.progress(JobStage::sending, 0);
    return Submit(order, document, control);
}

}  // namespace kalmo
