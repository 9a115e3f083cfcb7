// Untrusted ticket files: one that is read can be written, and the written one reads back the same.
#include <cstdint>
#include <cstdlib>

#include "printing/ticket_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto session = Owned<PMPrintSession>::Adopt(PMSessionCreate());
    std::string reason;
    if (!ReadTicketFile(session, {reinterpret_cast<const char*>(bytes), size}, &reason)) {
        // A refusal is one line.
        if (reason.empty() || reason.find('\n') != std::string::npos) std::abort();
        return 0;
    }
    const std::string written = WriteTicketFile(session, nullptr);
    if (written.empty()) std::abort();
    const auto second = Owned<PMPrintSession>::Adopt(PMSessionCreate());
    if (!ReadTicketFile(second, written, &reason)) std::abort();
    if (WriteTicketFile(second, nullptr) != written) std::abort();
    return 0;
}
