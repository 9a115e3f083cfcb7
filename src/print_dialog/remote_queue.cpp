#include "print_dialog/remote_queue.h"

#include <cups/cups.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>

#include "print_dialog/print_server.h"
#include "print_dialog/time_limit.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kFetchLimit(2500);
constexpr std::size_t kLargestPPD = 8 << 20;
constexpr const char* kFolders[] = {"/printers/", "/classes/"};

bool IsName(const std::string& text) {
    return !text.empty() && std::ranges::none_of(text, [](unsigned char c) {
        return c < 0x20 || c == 0x7F || c == '/' || c == '?' || c == '#';
    });
}

bool IsQueue(const std::string& resource) {
    return std::ranges::any_of(kFolders, [&](const std::string& folder) {
        return resource.starts_with(folder) && IsName(resource.substr(folder.size()));
    });
}

bool Write(int file, const char* bytes, std::size_t count) {
    while (count > 0) {
        const auto written = write(file, bytes, count);
        if (written <= 0) return false;
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
    return true;
}

/// The rest of an answer; false when it breaks off, is too large or comes too slowly.
bool SaveBody(http_t* http, int file, Clock::time_point deadline) {
    std::array<char, 16384> buffer;
    std::size_t total = 0;
    for (;;) {
        const auto count = httpRead2(http, buffer.data(), buffer.size());
        if (count == 0) return httpGetState(http) == HTTP_STATE_WAITING && httpError(http) == 0;
        total += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
        if (count < 0 || total > kLargestPPD || Clock::now() > deadline ||
            !Write(file, buffer.data(), static_cast<std::size_t>(count))) {
            return false;
        }
    }
}

/// Without libcups' own download, which answers a server that asks who we are.
FetchEnd Download(http_t* http, const std::string& resource, int file) {
    const auto deadline = Clock::now() + kFetchLimit;
    httpClearFields(http);
    if (httpGet(http, resource.c_str()) != 0) return FetchEnd::failed;
    auto status = HTTP_STATUS_CONTINUE;
    while (status == HTTP_STATUS_CONTINUE && Clock::now() < deadline) status = httpUpdate(http);
    if (status == HTTP_STATUS_NOT_FOUND) return FetchEnd::none;
    return status == HTTP_STATUS_OK && SaveBody(http, file, deadline) ? FetchEnd::whole
                                                                      : FetchEnd::failed;
}

std::string SilentLine(const RemoteQueue& queue) {
    return HostText("Other server silent", {queue.host});
}

FetchedPPD Fetch(const RemoteQueue& queue) {
    const auto encryption = queue.encrypted ? HTTP_ENCRYPTION_ALWAYS : cupsEncryption();
    const auto http = ConnectToHost(queue.host, queue.port, encryption, kListSilence);
    if (!http) return {{}, SilentLine(queue)};
    const auto fetch = [&](int file) {
        return Download(http.get(), queue.resource + ".ppd", file);
    };
    return KeepPPD({queue.name(), queue.host, queue.port}, fetch,
                   HostText("Other server refuses", {queue.host}));
}

}  // namespace

std::string RemoteQueue::name() const { return resource.substr(resource.rfind('/') + 1); }

std::optional<RemoteQueue> RemoteQueueOf(const std::string& device) {
    char scheme[32], user[HTTP_MAX_URI], host[HTTP_MAX_URI], resource[HTTP_MAX_URI];
    int port = 0;
    if (httpSeparateURI(HTTP_URI_CODING_ALL, device.c_str(), scheme, sizeof scheme, user,
                        sizeof user, host, sizeof host, &port, resource,
                        sizeof resource) != HTTP_URI_STATUS_OK) {
        return std::nullopt;
    }
    const bool encrypted = std::string(scheme) == "ipps";
    RemoteQueue queue{host, port, std::string(resource).substr(0, std::string(resource).find('?')),
                      encrypted};
    const bool speaksIpp = encrypted || std::string(scheme) == "ipp";
    if (!speaksIpp || queue.host.empty() || !IsQueue(queue.resource)) return std::nullopt;
    return queue;
}

FetchedPPD FetchRemotePPD(const RemoteQueue& queue) {
    const auto fetched = AnswerWithin<FetchedPPD>(kFetchLimit, [queue] { return Fetch(queue); });
    return fetched.value_or(FetchedPPD{{}, SilentLine(queue)});
}

}  // namespace kalmo
