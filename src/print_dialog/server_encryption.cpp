#include "print_dialog/server_encryption.h"

#include <arpa/inet.h>
#include <strings.h>

#include <memory>

#include "print_dialog/site_settings.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr char kAllowance[] = "network/allowUnencryptedSecrets";

struct CredentialsDeleter {
    void operator()(cups_array_t* credentials) const { httpFreeCredentials(credentials); }
};
using Credentials = std::unique_ptr<cups_array_t, CredentialsDeleter>;

/// What is secret, by the site's leave.
bool MayGoInClear() { return SiteFlag(kAllowance, false); }

/// An address only, so that a name such as 127.example.org is nobody's loopback.
bool IsLoopbackAddress(const std::string& text) {
    in_addr four = {};
    in6_addr six = {};
    if (inet_pton(AF_INET, text.c_str(), &four) == 1) return ntohl(four.s_addr) >> 24 == 127;
    return inet_pton(AF_INET6, text.c_str(), &six) == 1 && IN6_IS_ADDR_LOOPBACK(&six);
}

std::string WithoutBrackets(std::string_view server) {
    const bool bracketed = server.starts_with('[') && server.ends_with(']');
    return std::string(bracketed ? server.substr(1, server.size() - 2) : server);
}

/// What libcups has against the certificate; empty for nothing.
std::string Distrust(http_t* http, const std::string& server) {
    cups_array_t* copied = nullptr;
    httpCopyCredentials(http, &copied);
    const Credentials credentials(copied);
    const auto trust = httpCredentialsGetTrust(credentials.get(), server.c_str());
    if (trust == HTTP_TRUST_OK || trust == HTTP_TRUST_RENEWED) return {};
    const char* words = trust == HTTP_TRUST_UNKNOWN ? nullptr : cupsLastErrorString();
    std::string reason = words ? words : "?";
    if (reason.ends_with('.')) reason.pop_back();
    return reason;
}

}  // namespace

bool IsLocalServer(std::string_view server) {
    const auto name = WithoutBrackets(server);
    return name.starts_with('/') || strcasecmp(name.c_str(), "localhost") == 0 ||
           IsLoopbackAddress(name);
}

Confidentiality JobConfidentiality(std::string_view server, bool secret) {
    if (IsLocalServer(server)) return Confidentiality::asConfigured;
    return secret && !MayGoInClear() ? Confidentiality::encrypted
                                     : Confidentiality::encryptedWherePossible;
}

std::string WhyNotPassedOn(const std::string& host) {
    return host.empty() || MayGoInClear() ? "" : HostText("Secrets passed on", {host});
}

std::string WhyNotConfidential(http_t* http, const std::string& server) {
    if (!httpIsEncrypted(http)) {
        const bool ours = cupsEncryption() == HTTP_ENCRYPTION_NEVER;
        return ours ? HostText("Encryption off") : HostText("Secrets unencrypted", {server});
    }
    const auto distrust = Distrust(http, server);
    return distrust.empty() ? "" : HostText("Server untrusted", {server, distrust});
}

}  // namespace kalmo
