// Which jobs go to a print server encrypted, and whether a connection is fit for one.
#pragma once

#include <cups/cups.h>

#include <string>
#include <string_view>

namespace kalmo {

enum class Confidentiality {
    asConfigured,            // as the user's client.conf says
    encryptedWherePossible,  // in clear only to a server that offers nothing better
    encrypted,               // or not at all
};

/// This machine, by what the server is called: a socket, "localhost", the loopback's addresses.
/// Nobody is asked where another name leads.
[[nodiscard]] bool IsLocalServer(std::string_view server);

/// How a job goes to `server`. `secret`: it holds what must not cross a network in clear, unless
/// the site allows it (network/allowUnencryptedSecrets in site.conf).
[[nodiscard]] Confidentiality JobConfidentiality(std::string_view server, bool secret);

/// Why secrets may not go to a queue that passes its jobs on to `host` in clear; empty for no host,
/// and where the site allows it. Any thread.
[[nodiscard]] std::string WhyNotPassedOn(const std::string& host);

/// Empty when secrets may go over the connection: it is encrypted, and libcups trusts the server's
/// certificate under the user's client.conf. Else a line for the user.
[[nodiscard]] std::string WhyNotConfidential(http_t* http, const std::string& server);

}  // namespace kalmo
