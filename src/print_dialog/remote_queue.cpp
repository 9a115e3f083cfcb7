#include "print_dialog/remote_queue.h"

#include <algorithm>
#include <chrono>

#include "print_dialog/print_server.h"
#include "print_dialog/time_limit.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr std::chrono::milliseconds kFetchLimit(2500);
constexpr const char* kFolders[] = {"/printers/", "/classes/"};
constexpr std::string_view kQueueSchemes[] = {"ipp", "ipps", "http", "https"};
constexpr const char* kEncryptedOptions[] = {"encryption=required", "encryption=always"};
constexpr int kEncryptedPort = 443;
constexpr std::string_view kClearService = "._ipp._tcp.";

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

std::string SilentLine(const RemoteQueue& queue) {
    return HostText("Other server silent", {queue.host});
}

FetchedPPD Fetch(const RemoteQueue& queue) {
    const auto encryption = queue.encrypted ? HTTP_ENCRYPTION_ALWAYS : cupsEncryption();
    const auto http = ConnectToHost(queue.host, queue.port, encryption, kListSilence);
    if (!http) return {.error = SilentLine(queue)};
    return KeepPPD({queue.name(), queue.host, queue.port},
                   DownloadPPD(http.get(), queue.resource, Visitor::nobody, kFetchLimit),
                   SilentLine(queue));
}

struct Device {
    std::string scheme, host, resource, options;
    int port = 0;
};

std::optional<Device> DeviceOf(const std::string& uri) {
    char scheme[32], user[HTTP_MAX_URI], host[HTTP_MAX_URI], path[HTTP_MAX_URI];
    int port = 0;
    // Above "OK" it only remarks on something, on a scheme that it does not know among them.
    if (httpSeparateURI(HTTP_URI_CODING_ALL, uri.c_str(), scheme, sizeof scheme, user, sizeof user,
                        host, sizeof host, &port, path, sizeof path) < HTTP_URI_STATUS_OK) {
        return std::nullopt;
    }
    const std::string resource(path);
    const auto mark = std::min(resource.find('?'), resource.size());
    return Device{scheme, host, resource.substr(0, mark), resource.substr(mark), port};
}

/// Some options of CUPS' own way to another server have it encrypted on a port that is not.
bool IsEncrypted(const Device& device) {
    return device.scheme.ends_with('s') || device.port == kEncryptedPort ||
           std::ranges::any_of(kEncryptedOptions, [&](const char* option) {
               return device.options.find(option) != std::string::npos;
           });
}

/// A queue that another server announces in the network, "Office @ server": its name where jobs go
/// to it in clear. Its device names the service, and "/cups" in place of the queue.
std::string ClearServiceOf(const Device& device) {
    if (device.scheme != "dnssd" || device.resource != "/cups" || IsEncrypted(device)) return "";
    const auto mark = device.host.find(kClearService);
    return mark == std::string::npos ? "" : device.host.substr(0, mark);
}

}  // namespace

std::string RemoteQueue::name() const { return resource.substr(resource.rfind('/') + 1); }

std::optional<RemoteQueue> RemoteQueueOf(const std::string& device) {
    const auto found = DeviceOf(device);
    if (!found || found->host.empty() || !IsQueue(found->resource)) return std::nullopt;
    const bool encrypted = found->scheme == "ipps";
    if (!encrypted && found->scheme != "ipp") return std::nullopt;
    return RemoteQueue{found->host, found->port, found->resource, encrypted};
}

std::string ClearHostOf(const std::string& device) {
    const auto found = DeviceOf(device);
    if (!found) return "";
    const bool known = IsQueue(found->resource) &&
                       std::ranges::find(kQueueSchemes, found->scheme) != std::end(kQueueSchemes);
    if (!known) return ClearServiceOf(*found);
    return !IsEncrypted(*found) && !IsLocalServer(found->host) ? found->host : "";
}

FetchedPPD FetchRemotePPD(const RemoteQueue& queue) {
    const auto fetched = AnswerWithin<FetchedPPD>(kFetchLimit, [queue] { return Fetch(queue); });
    return fetched.value_or(FetchedPPD{.error = SilentLine(queue)});
}

}  // namespace kalmo
