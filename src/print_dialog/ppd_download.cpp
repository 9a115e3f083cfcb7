#include "print_dialog/ppd_download.h"

#include <strings.h>

#include <array>

namespace kalmo {
namespace {

using Clock = std::chrono::steady_clock;
using End = DownloadedPPD::End;

constexpr std::size_t kLargestPPD = 8 << 20;
constexpr int kConnectMilliseconds = 1000;

/// Not libcups' own download, which has no limits and answers whoever asks who we are.
http_status_t Get(http_t* http, const std::string& file, Clock::time_point deadline) {
    if (httpGet(http, file.c_str()) != 0) return HTTP_STATUS_ERROR;
    auto status = HTTP_STATUS_CONTINUE;
    while (status == HTTP_STATUS_CONTINUE && Clock::now() < deadline) status = httpUpdate(http);
    return status;
}

http_status_t GetAs(Visitor visitor, http_t* http, const std::string& file,
                    Clock::time_point deadline) {
    const bool closed = strcasecmp(httpGetField(http, HTTP_FIELD_CONNECTION), "close") == 0;
    if (closed && httpReconnect2(http, kConnectMilliseconds, nullptr) != 0) {
        return HTTP_STATUS_ERROR;
    }
    httpClearFields(http);
    const auto status = Get(http, file, deadline);
    if (status != HTTP_STATUS_UNAUTHORIZED || visitor == Visitor::nobody ||
        cupsDoAuthentication(http, "GET", file.c_str()) != 0 ||
        httpReconnect2(http, kConnectMilliseconds, nullptr) != 0) {
        return status;
    }
    httpClearFields(http);
    httpSetField(http, HTTP_FIELD_AUTHORIZATION, httpGetAuthString(http));
    return Get(http, file, deadline);
}

End ReadBody(http_t* http, Clock::time_point deadline, std::string* bytes) {
    std::array<char, 16384> buffer;
    for (;;) {
        const auto count = httpRead2(http, buffer.data(), buffer.size());
        const bool atEnd = httpGetState(http) == HTTP_STATE_WAITING && httpError(http) == 0;
        if (count == 0) return atEnd ? End::whole : End::silent;
        if (count < 0 || Clock::now() > deadline) return End::silent;
        bytes->append(buffer.data(), static_cast<std::size_t>(count));
        if (bytes->size() > kLargestPPD) return End::refused;
    }
}

}  // namespace

DownloadedPPD DownloadPPD(http_t* http, const std::string& resource, Visitor visitor,
                          std::chrono::milliseconds limit) {
    const auto deadline = Clock::now() + limit;
    DownloadedPPD ppd;
    const auto status = GetAs(visitor, http, resource + ".ppd", deadline);
    if (status == HTTP_STATUS_OK) {
        ppd.end = ReadBody(http, deadline, &ppd.bytes);
    } else if (status == HTTP_STATUS_NOT_FOUND) {
        ppd.end = End::none;
    } else if (status >= HTTP_STATUS_BAD_REQUEST && status < HTTP_STATUS_SERVER_ERROR) {
        ppd.end = End::refused;
    }
    return ppd;
}

}  // namespace kalmo
