#include "print_dialog/print_server.h"

#include <cerrno>
#include <mutex>
#include <utility>

#include "print_dialog/text_limits.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr int kConnectMilliseconds = 1000;
constexpr std::size_t kLongestWords = 200;

int GiveUp(http_t*, void*) { return 0; }

/// A worker has nobody to type a password: such a request is refused instead.
const char* NoPassword(const char*, http_t*, const char*, const char*, void*) { return nullptr; }

http_encryption_t Encryption(Confidentiality confidentiality) {
    const auto configured = cupsEncryption();
    const bool free = configured == HTTP_ENCRYPTION_IF_REQUESTED;
    return free && confidentiality != Confidentiality::asConfigured ? HTTP_ENCRYPTION_REQUIRED
                                                                    : configured;
}

struct Host {
    std::string name;
    int port;
};

HttpConnection Connect(const Host& host, http_encryption_t encryption) {
    return HttpConnection(httpConnect2(host.name.c_str(), host.port, nullptr, AF_UNSPEC, encryption,
                                       1, kConnectMilliseconds, nullptr));
}

/// In clear first: only a connection that is there can be given a limit for the rest. Null with
/// `*inClear` when the server is there, but does not encrypt.
HttpConnection ConnectEncrypted(const Host& host, http_encryption_t encryption, bool* inClear) {
    *inClear = false;
    auto http = Connect(host, HTTP_ENCRYPTION_IF_REQUESTED);
    if (!http) return nullptr;
    LimitSilence(http.get(), kTlsSilence);
    if (httpEncryption(http.get(), encryption) == 0) return http;
    *inClear = httpError(http.get()) != ETIMEDOUT;
    return nullptr;
}

HttpConnection ConnectAsNeeded(const Host& server, Confidentiality confidentiality, bool* inClear) {
    *inClear = false;
    const auto encryption = Encryption(confidentiality);
    if (encryption >= HTTP_ENCRYPTION_REQUIRED) {
        auto http = ConnectEncrypted(server, encryption, inClear);
        const bool mayBeClear = confidentiality == Confidentiality::encryptedWherePossible &&
                                encryption != cupsEncryption();
        if (http || !mayBeClear) return http;
    }
    return Connect(server, cupsEncryption());
}

struct RefusalRow {
    ipp_status_t status;
    const char* text;  // key
};
constexpr RefusalRow kRefusals[] = {
    {IPP_STATUS_ERROR_NOT_FOUND, "No such printer"},
    {IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS, "Printer accepts no jobs"},
    {IPP_STATUS_ERROR_NOT_AUTHORIZED, "Printing forbidden"},
    {IPP_STATUS_ERROR_NOT_AUTHENTICATED, "Printing forbidden"},
    {IPP_STATUS_ERROR_FORBIDDEN, "Printing forbidden"},
    {IPP_STATUS_ERROR_CUPS_AUTHENTICATION_CANCELED, "Printing forbidden"},
    {IPP_STATUS_ERROR_DOCUMENT_FORMAT_NOT_SUPPORTED, "Printer without PDF"},
    {IPP_STATUS_ERROR_BUSY, "Server busy"},
    {IPP_STATUS_ERROR_TOO_MANY_JOBS, "Server busy"},
};

}  // namespace

void PrepareThread() {
    // cupsInitialize-like work must not run in two threads at once the first time.
    static std::once_flag once;
    std::call_once(once, [] { httpInitialize(); });
    cupsSetPasswordCB2(NoPassword, nullptr);
}

HttpConnection ConnectToServer(Confidentiality confidentiality, double silence,
                               std::string* error) {
    PrepareThread();
    const Host server{cupsServer(), ippPort()};
    const bool strict = confidentiality == Confidentiality::encrypted;
    bool inClear = false;
    auto http = ConnectAsNeeded(server, confidentiality, &inClear);
    if (!http) {
        *error = !inClear ? SilentServerLine()
                 : strict ? HostText("Secrets unencrypted", {server.name})
                          : HostText("Server unencrypted", {server.name});
        return nullptr;
    }
    LimitSilence(http.get(), silence);
    if (!strict) return http;
    *error = WhyNotConfidential(http.get(), server.name);
    return error->empty() ? std::move(http) : nullptr;
}

HttpConnection ConnectToHost(const std::string& host, int port, http_encryption_t encryption,
                             double silence) {
    PrepareThread();
    bool ignored = false;
    auto http = encryption >= HTTP_ENCRYPTION_REQUIRED
                    ? ConnectEncrypted({host, port}, encryption, &ignored)
                    : Connect({host, port}, encryption);
    if (http) LimitSilence(http.get(), silence);
    return http;
}

void LimitSilence(http_t* http, double seconds) { httpSetTimeout(http, seconds, GiveUp, nullptr); }

std::string QueueResource(const std::string& queue) {
    return queue.empty() ? "/" : "/printers/" + queue;
}

IppMessage NewRequest(ipp_op_t operation, const std::string& queue) {
    IppMessage request(ippNewRequest(operation));
    if (!queue.empty()) {
        char uri[HTTP_MAX_URI];
        httpAssembleURIf(HTTP_URI_CODING_ALL, uri, sizeof uri, "ipp", nullptr, "localhost", 0,
                         "/printers/%s", queue.c_str());
        ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri);
    }
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    return request;
}

IppMessage Ask(http_t* http, IppMessage request, const std::string& resource, std::string* error) {
    IppMessage answer(cupsDoRequest(http, request.release(), resource.c_str()));
    auto line = RefusalLine(http, answer.get());
    if (line.empty()) return answer;
    *error = std::move(line);
    return nullptr;
}

std::string TextAttribute(ipp_t* answer, const char* name) {
    const char* text = ippGetString(ippFindAttribute(answer, name, IPP_TAG_ZERO), 0, nullptr);
    return text ? text : "";
}

std::string OneLine(std::string words) {
    return WithoutControls(Shortened(std::move(words), kLongestWords));
}

std::string SilentServerLine() { return HostText("Server silent", {cupsServer()}); }

std::string RefusalLine(http_t* http, ipp_t* answer) {
    const auto status = cupsLastError();
    if (answer && status <= IPP_STATUS_OK_EVENTS_COMPLETE) return {};
    if (httpGetStatus(http) == HTTP_STATUS_SERVICE_UNAVAILABLE) return HostText("Server busy");
    for (const auto& row : kRefusals) {
        if (row.status == status) return HostText(row.text);
    }
    // Without words of the server's own, it did not come to an answer.
    const auto words = answer ? TextAttribute(answer, "status-message") : "";
    return words.empty() ? SilentServerLine() : HostText("Server says", {OneLine(words)});
}

}  // namespace kalmo
