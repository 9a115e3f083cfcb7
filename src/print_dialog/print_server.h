// The print server as workers see it: connections that end, requests with an answer or a reason.
//
// Blocking, for workers only. Every wait on a connection has a limit.
#pragma once

#include <cups/cups.h>

#include <memory>
#include <string>

#include "print_dialog/server_encryption.h"

namespace kalmo {

struct HttpCloser {
    void operator()(http_t* http) const { httpClose(http); }
};
using HttpConnection = std::unique_ptr<http_t, HttpCloser>;

struct IppDeleter {
    void operator()(ipp_t* ipp) const { ippDelete(ipp); }
};
using IppMessage = std::unique_ptr<ipp_t, IppDeleter>;

/// The seconds that a server may stay silent before a request gives up.
inline constexpr double kListSilence = 2;
inline constexpr double kSendSilence = 15;
inline constexpr double kCancelSilence = 5;
/// While encryption is agreed on; libcups itself allows a server ten once it has begun.
inline constexpr double kTlsSilence = 5;

/// What libcups needs in each thread before it is asked anything.
void PrepareThread();

/// Connects within a second, and agrees on encryption within kTlsSilence; null with a line for the
/// user in `*error`.
[[nodiscard]] HttpConnection ConnectToServer(Confidentiality confidentiality, double silence,
                                             std::string* error);

/// Another server, by name and port: with `encryption` or not at all. Null when it does not answer.
[[nodiscard]] HttpConnection ConnectToHost(const std::string& host, int port,
                                           http_encryption_t encryption, double silence);

/// From now on whoever waits on the connection gives up after so many seconds of silence.
void LimitSilence(http_t* http, double seconds);

/// A request about a queue, or about the server when `queue` is empty, in the user's name.
[[nodiscard]] IppMessage NewRequest(ipp_op_t operation, const std::string& queue);
/// "/printers/NAME", "/" for an empty name.
[[nodiscard]] std::string QueueResource(const std::string& queue);

/// The answer; null with a line for the user in `*error` when the server refuses or stays silent.
[[nodiscard]] IppMessage Ask(http_t* http, IppMessage request, const std::string& resource,
                             std::string* error);
/// What to tell the user about the last answer, null for none; empty for a success.
[[nodiscard]] std::string RefusalLine(http_t* http, ipp_t* answer);

/// The attribute's text, empty when it is missing.
[[nodiscard]] std::string TextAttribute(ipp_t* answer, const char* name);

/// A server's words as a line of ours: no control characters, and of no great length.
[[nodiscard]] std::string OneLine(std::string words);

[[nodiscard]] std::string SilentServerLine();

}  // namespace kalmo
