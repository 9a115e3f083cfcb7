#include "contacts/eds/failures.h"

#include <libebook/libebook.h>

#include <algorithm>
#include <iterator>

namespace contacts::eds {
namespace {

struct Row {
    GQuark (*domain)();
    int code;
    Code meaning;
};
constexpr Row kRows[] = {
    {e_book_client_error_quark, E_BOOK_CLIENT_ERROR_NO_SUCH_BOOK, Code::unavailable},
    {e_book_client_error_quark, E_BOOK_CLIENT_ERROR_CONTACT_NOT_FOUND, Code::notFound},
    {e_book_client_error_quark, E_BOOK_CLIENT_ERROR_NO_SUCH_SOURCE, Code::unavailable},
    {e_book_client_error_quark, E_BOOK_CLIENT_ERROR_NO_SPACE, Code::noSpace},
    {e_client_error_quark, E_CLIENT_ERROR_AUTHENTICATION_FAILED, Code::unavailable},
    {e_client_error_quark, E_CLIENT_ERROR_AUTHENTICATION_REQUIRED, Code::unavailable},
    {e_client_error_quark, E_CLIENT_ERROR_REPOSITORY_OFFLINE, Code::unavailable},
    {e_client_error_quark, E_CLIENT_ERROR_OFFLINE_UNAVAILABLE, Code::unavailable},
    {e_client_error_quark, E_CLIENT_ERROR_PERMISSION_DENIED, Code::readOnly},
    {e_client_error_quark, E_CLIENT_ERROR_CANCELLED, Code::cancelled},
    {e_client_error_quark, E_CLIENT_ERROR_OUT_OF_SYNC, Code::conflict},
    {g_io_error_quark, G_IO_ERROR_CANCELLED, Code::cancelled},
    {g_io_error_quark, G_IO_ERROR_TIMED_OUT, Code::timedOut},
    {g_io_error_quark, G_IO_ERROR_NO_SPACE, Code::noSpace},
    {g_io_error_quark, G_IO_ERROR_READ_ONLY, Code::readOnly},
    {g_dbus_error_quark, G_DBUS_ERROR_TIMEOUT, Code::timedOut},
    {g_dbus_error_quark, G_DBUS_ERROR_TIMED_OUT, Code::timedOut},
};

}  // namespace

Answer AnswerTo(const GError* error, const char* doing) {
    if (!error) return {Code::failed, std::string(doing) + ": no reason given"};
    const auto* row = std::ranges::find_if(kRows, [&](const Row& candidate) {
        return g_error_matches(error, candidate.domain(), candidate.code);
    });
    const char* const domain = g_quark_to_string(error->domain);
    return {row == std::end(kRows) ? Code::failed : row->meaning,
            std::string(doing) + ": " + (domain ? domain : "error") + ' ' +
                std::to_string(error->code)};
}

bool IsLinkLost(const GError* error) {
    if (!error) return false;
    const bool isOnTheWay = error->domain == G_DBUS_ERROR || error->domain == G_IO_ERROR;
    const Code code = AnswerTo(error, "").code;
    return isOnTheWay && code == Code::failed;
}

}  // namespace contacts::eds
