// The ticket inside a PDF: put in, checked, taken out.
//
// The ticket travels as the embedded file "com.kalmo.print.ticket" (shown as
// com.kalmo.print.ticket.plist). The job carries its digest as the option com.kalmo.print.ticket.
// No Qt and no platform: this serves the print dialog and the printer's filter.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "job_ticket/result.h"

namespace kalmo::job_ticket {

inline constexpr char kAttachmentKey[] = "com.kalmo.print.ticket";
inline constexpr char kAttachmentFileName[] = "com.kalmo.print.ticket.plist";
/// Job option; its value is TicketDigest's.
inline constexpr char kDigestOption[] = "com.kalmo.print.ticket";
/// Ticket key of the 16 random bytes that keep the public digest from giving anything away.
inline constexpr char kNonceKey[] = "com.kalmo.print.nonce";

/// "sha256-" and 64 lower-case hexadecimal digits.
[[nodiscard]] std::string TicketDigest(std::string_view ticket);
/// 16 bytes from the system's random source.
[[nodiscard]] std::string MakeNonce();

/// Writes `document` with the ticket attached (an older one replaced) to `output`, mode 0600, under
/// a temporary name, synced, renamed. Refused: no PDF, damaged, user password needed, over 64 MiB
/// ticket.
Result AttachTicket(const std::filesystem::path& document, std::string_view ticket,
                    const std::filesystem::path& output);

struct TakenOut {
    /// The ticket's bytes; absent without `digest`.
    std::optional<std::string> ticket;
};
/// With a digest: the attachment must be there and match; the document without it goes to `output`.
/// Without one: an attachment is ignored and the document's bytes go to `output` unchanged.
/// `output` is a file of mode 0600, written as AttachTicket does; empty: no document is written.
Result TakeTicketOut(const std::filesystem::path& document,
                     const std::optional<std::string>& digest, const std::filesystem::path& output,
                     TakenOut* out);

}  // namespace kalmo::job_ticket
