// The print server as workers see it: connections that end, requests with an answer or a reason.
//
// Blocking, for workers only. Every wait on a connection has a limit.
#pragma once

#include <cups/cups.h>

#include <memory>
#include <string>

namespace kalmo {

struct HttpCloser {
    void operator()(http_t* http) const { httpClose(http); }
};
using HttpConnection = std::unique_ptr<http_t, HttpCloser>;

struct IppDeleter {
    void operator()(ipp_t* ipp) const { ippDelete(ipp); }
};
using IppMessage = std::unique_ptr<ipp_t, IppDeleter>;

enum class Confidentiality { asConfigured, encryptedWhenRemote };

/// The seconds that a server may stay silent before a request gives up.
inline constexpr double kListSilence = 2;
inline constexpr double kSendSilence = 15;

/// Connects within a second; null with a line for the user in `*error`.
[[nodiscard]] HttpConnection ConnectToServer(Confidentiality confidentiality, double silence,
                                             std::string* error);

/// A request about a queue, or about the server when `queue` is empty, in the user's name.
[[nodiscard]] IppMessage NewRequest(ipp_op_t operation, const std::string& queue);
/// "/printers/NAME", "/" for an empty name.
[[nodiscard]] std::string QueueResource(const std::string& queue);

/// The answer; null with a line for the user in `*error` when the server refuses or stays silent.
[[nodiscard]] IppMessage Ask(http_t* http, IppMessage request, const std::string& resource,
                             std::string* error);

/// The attribute's text, empty when it is missing.
[[nodiscard]] std::string TextAttribute(ipp_t* answer, const char* name);

[[nodiscard]] std::string SilentServerLine();
/// What to tell the user about a status that is no success.
[[nodiscard]] std::string RefusalLine(ipp_status_t status, const std::string& serverWords);

}  // namespace kalmo
