#include <cups/cups.h>
#include <sys/random.h>

#include <array>
#include <cerrno>
#include <cstdlib>

#include "job_ticket/attachment.h"

namespace kalmo::job_ticket {
namespace {

constexpr std::size_t kNonceBytes = 16;

}  // namespace

std::string TicketDigest(std::string_view ticket) {
    std::array<unsigned char, 32> hash{};
    std::array<char, 2 * hash.size() + 1> text{};
    cupsHashData("sha2-256", ticket.data(), ticket.size(), hash.data(), hash.size());
    cupsHashString(hash.data(), hash.size(), text.data(), text.size());
    return std::string("sha256-") + text.data();
}

std::string MakeNonce() {
    std::string nonce(kNonceBytes, '\0');
    // Fails only on a kernel without a random source: better no job than one whose passcode can be
    // guessed from its digest.
    if (getentropy(nonce.data(), nonce.size()) != 0) std::abort();
    return nonce;
}

}  // namespace kalmo::job_ticket
