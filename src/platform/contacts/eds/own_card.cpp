#include "contacts/eds/own_card.h"

#include "contacts/eds/glib_holders.h"

namespace contacts::eds {
namespace {

constexpr const char* kKey = "self-contact-uid";

Held<GSettings> AddressBookSettings() {
    return Held<GSettings>(g_settings_new("org.gnome.evolution-data-server.addressbook"));
}

}  // namespace

std::string OwnCardUid() {
    const HeldText uid(g_settings_get_string(AddressBookSettings().get(), kKey));
    return uid ? uid.get() : "";
}

Answer SetOwnCardUid(const std::string& uid) {
    if (!g_settings_set_string(AddressBookSettings().get(), kKey, uid.c_str()))
        return {Code::readOnly, "marking the user's own card: the desktop's setting is locked"};
    g_settings_sync();
    return {};
}

}  // namespace contacts::eds
