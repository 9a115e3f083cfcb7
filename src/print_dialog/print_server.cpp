#include "print_dialog/print_server.h"

#include <mutex>
#include <string_view>

#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr int kConnectMilliseconds = 1000;

int GiveUp(http_t*, void*) { return 0; }

/// A worker has nobody to type a password: such a request is refused instead.
const char* NoPassword(const char*, http_t*, const char*, const char*, void*) { return nullptr; }

bool IsLocal(std::string_view server) {
    return server.starts_with('/') || server == "localhost" || server == "::1" ||
           server.starts_with("127.");
}

http_encryption_t Encryption(Confidentiality confidentiality) {
    const bool required =
        confidentiality == Confidentiality::encryptedWhenRemote && !IsLocal(cupsServer());
    return required ? HTTP_ENCRYPTION_REQUIRED : cupsEncryption();
}

std::string UnreachableLine(http_encryption_t encryption) {
    const std::string server = cupsServer();
    if (encryption == HTTP_ENCRYPTION_REQUIRED) {
        return HostText("Server unencrypted", {server});
    }
    return HostText("Server silent", {server});
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
};

/// cupsInitialize-like work of libcups must not run in two threads at once the first time.
void PrepareThread() {
    static std::once_flag once;
    std::call_once(once, [] { httpInitialize(); });
    cupsSetPasswordCB2(NoPassword, nullptr);
}

}  // namespace

HttpConnection ConnectToServer(Confidentiality confidentiality, double silence,
                               std::string* error) {
    PrepareThread();
    const auto encryption = Encryption(confidentiality);
    HttpConnection http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, encryption, 1,
                                     kConnectMilliseconds, nullptr));
    if (http) {
        httpSetTimeout(http.get(), silence, GiveUp, nullptr);
    } else {
        *error = UnreachableLine(encryption);
    }
    return http;
}

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
    const auto status = cupsLastError();
    if (answer && status <= IPP_STATUS_OK_EVENTS_COMPLETE) return answer;
    *error = RefusalLine(status, answer ? TextAttribute(answer.get(), "status-message") : "");
    return nullptr;
}

std::string TextAttribute(ipp_t* answer, const char* name) {
    const char* text = ippGetString(ippFindAttribute(answer, name, IPP_TAG_ZERO), 0, nullptr);
    return text ? text : "";
}

std::string SilentServerLine() { return UnreachableLine(HTTP_ENCRYPTION_IF_REQUESTED); }

std::string RefusalLine(ipp_status_t status, const std::string& serverWords) {
    for (const auto& row : kRefusals) {
        if (row.status == status) return HostText(row.text);
    }
    // Without words of the server's own, it did not come to an answer.
    return serverWords.empty() ? SilentServerLine() : HostText("Server says", {serverWords});
}

}  // namespace kalmo
