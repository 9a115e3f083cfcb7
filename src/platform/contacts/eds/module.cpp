// What the program finds in this module.
#include <mutex>
#include <new>

#include "contacts/desktop_module.h"
#include "contacts/eds/desktop_cards.h"

namespace {

void Drop(const char*, GLogLevelFlags, const char*, gpointer) {}

/// The libraries quote cards when they warn of something in them; a log must not.
void KeepCardsOutOfLogs() {
    for (const char* domain : {"libebook", "libebook-contacts"})
        g_log_set_handler(domain, G_LOG_LEVEL_MASK, Drop, nullptr);
}

}  // namespace

extern "C" [[gnu::visibility("default")]] contacts::AddressBook* KalmoOpenDesktopBook(
    const std::stop_token& stop, contacts::Answer& why) try {
    static std::once_flag isQuiet;
    std::call_once(isQuiet, KeepCardsOutOfLogs);
    auto book = std::make_unique<contacts::eds::DesktopCards>();
    why = book->open(stop);
    return why ? book.release() : nullptr;
} catch (const std::bad_alloc&) {
    why.code = contacts::Code::unavailable;
    return nullptr;
}
