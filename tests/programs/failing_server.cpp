#include "programs/failing_server.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

namespace kalmo::test {
namespace {

constexpr int kOptions = 0;
constexpr std::string_view kHalf =
    "HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\nContent-Length: 99\r\n\r\n\2";
constexpr std::string_view kAgreement =
    "HTTP/1.1 101 Switching Protocols\r\nConnection: Upgrade\r\nUpgrade: TLS/1.2\r\n\r\n";

void Write(http_t* http, http_status_t status, ipp_t* answer) {
    httpClearFields(http);
    httpSetField(http, HTTP_FIELD_CONTENT_TYPE, "application/ipp");
    httpSetLength(http, answer ? ippLength(answer) : 0);
    httpWriteResponse(http, status);
    if (answer) ippWrite(http, answer);
    httpFlushWrite(http);
}

ipp_t* NewAnswer(ipp_status_t status) {
    ipp_t* answer = ippNewRequest(IPP_OP_PRINT_JOB);
    ippSetStatusCode(answer, status);
    return answer;
}

bool Send(http_t* http, std::string_view bytes) {
    return send(httpGetFd(http), bytes.data(), bytes.size(), MSG_NOSIGNAL) > 0;
}

/// One value of an attribute after the other for as long as somebody reads.
void SendWithoutEnd(http_t* http) {
    std::string values;
    while (values.size() < 60000) values += std::string("\x42\0\0\0\1b", 6);
    Send(http, "HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\n\r\n");
    Send(http, std::string_view("\x02\0\0\0\0\0\0\1\2\x42\0\1a\0\1b", 15));
    while (Send(http, values)) {
    }
}

}  // namespace

FailingServer::FailingServer(ServerPlan plan) : plan_(std::move(plan)) {
    listen(listener_.socket, SOMAXCONN);
    acceptor_ = std::thread([this] { accept(); });
}

FailingServer::~FailingServer() {
    shutdown(listener_.socket, SHUT_RDWR);
    acceptor_.join();
    for (http_t* http : connections_) shutdown(httpGetFd(http), SHUT_RDWR);
    for (auto& thread : threads_) thread.join();
    for (http_t* http : connections_) httpClose(http);
    close(listener_.socket);
    ippDelete(job_);
}

std::vector<int> FailingServer::asked() {
    const std::lock_guard lock(mutex_);
    return asked_;
}

bool FailingServer::wasAsked(int operation) {
    const auto all = asked();
    return std::ranges::find(all, operation) != all.end();
}

void FailingServer::accept() {
    while (http_t* http = httpAcceptConnection(listener_.socket, 1)) {
        const std::lock_guard lock(mutex_);
        connections_.push_back(http);
        threads_.emplace_back([this, http] { serve(http); });
    }
}

/// Until a fault, or until the other side has enough.
void FailingServer::serve(http_t* http) {
    for (bool goesOn = true; goesOn;) {
        char resource[HTTP_MAX_URI];
        const auto state = httpReadRequest(http, resource, sizeof resource);
        if (state == HTTP_STATE_WAITING || state == HTTP_STATE_ERROR) break;
        while (httpUpdate(http) == HTTP_STATUS_CONTINUE && httpGetState(http) == state) {
        }
        if (httpGetExpect(http)) httpWriteResponse(http, HTTP_STATUS_CONTINUE);
        ipp_t* request = ippNew();
        if (state == HTTP_STATE_POST) {
            while (ippRead(http, request) != IPP_STATE_DATA) {
            }
        }
        goesOn = answer(http, request);
        ippDelete(request);
    }
}

bool FailingServer::answer(http_t* http, ipp_t* request) {
    const int operation = ippGetOperation(request);
    {
        const std::lock_guard lock(mutex_);
        asked_.push_back(operation);
    }
    const auto fault = plan_.faults.find(operation);
    if (fault != plan_.faults.end()) return fail(http, fault->second);
    char rest[4096];
    while (operation == IPP_OP_SEND_DOCUMENT && httpRead2(http, rest, sizeof rest) > 0) {
    }
    ipp_t* answer = operation == kOptions ? nullptr : jobAnswer(request);
    Write(http, HTTP_STATUS_OK, answer);
    ippDelete(answer);
    return true;
}

bool FailingServer::fail(http_t* http, Fault fault) {
    ipp_t* busy = NewAnswer(IPP_STATUS_ERROR_BUSY);
    if (fault == Fault::busy) Write(http, HTTP_STATUS_OK, busy);
    if (fault == Fault::unavailable) Write(http, HTTP_STATUS_SERVICE_UNAVAILABLE, nullptr);
    if (fault == Fault::forbidden) Write(http, HTTP_STATUS_FORBIDDEN, nullptr);
    if (fault == Fault::half) Send(http, kHalf);
    if (fault == Fault::endless) SendWithoutEnd(http);
    if (fault == Fault::agreesToEncrypt) Send(http, kAgreement);
    ippDelete(busy);
    if (fault == Fault::hangsUp || fault == Fault::half) shutdown(httpGetFd(http), SHUT_RDWR);
    return fault == Fault::busy || fault == Fault::unavailable;
}

ipp_t* FailingServer::jobAnswer(ipp_t* request) {
    const std::lock_guard lock(mutex_);
    ipp_t* answer = NewAnswer(IPP_STATUS_OK);
    if (ippGetOperation(request) == IPP_OP_CREATE_JOB) {
        ippDelete(job_);
        job_ = ippNew();
        ippCopyAttributes(job_, request, 0, nullptr, nullptr);
    }
    ippAddInteger(answer, IPP_TAG_JOB, IPP_TAG_INTEGER, "job-id", 7);
    if (ippGetOperation(request) != IPP_OP_GET_JOB_ATTRIBUTES) return answer;
    for (auto* one = ippFirstAttribute(job_); one; one = ippNextAttribute(job_)) {
        const char* name = ippGetName(one);
        if (!name) continue;
        const auto kept = plan_.keeps.find(name);
        if (kept == plan_.keeps.end()) {
            auto* copy = ippCopyAttribute(answer, one, 0);
            ippSetGroupTag(answer, &copy, IPP_TAG_JOB);
        } else if (!kept->second.empty()) {
            ippAddString(answer, IPP_TAG_JOB, IPP_TAG_NAME, name, nullptr, kept->second.c_str());
        }
    }
    return answer;
}

}  // namespace kalmo::test
