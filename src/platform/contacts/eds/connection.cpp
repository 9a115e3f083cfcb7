#include "contacts/eds/connection.h"

#include <algorithm>
#include <array>
#include <mutex>

#include "contacts/eds/failures.h"

namespace contacts::eds {
namespace {

constexpr const char* kOpening = "opening the desktop's address book";
constexpr const char* kBuiltInBook = "system-address-book";
/// "Do not wait until a remote book is online": what is known of it is on this machine.
constexpr guint32 kDoNotWait = G_MAXUINT32;

Answer NotOpened(const GError* error) {
    Answer answer = AnswerTo(error, kOpening);
    if (answer.code == Code::failed) answer.code = Code::unavailable;
    return answer;
}

/// The desktop's libraries end the program where they miss one of these.
bool HasSettings() {
    constexpr std::array kSchemas = {"org.gnome.Evolution.DefaultSources",
                                     "org.gnome.evolution-data-server",
                                     "org.gnome.evolution-data-server.addressbook"};
    GSettingsSchemaSource* const source = g_settings_schema_source_get_default();
    return source && std::ranges::all_of(kSchemas, [&](const char* id) {
               GSettingsSchema* const schema = g_settings_schema_source_lookup(source, id, true);
               if (schema) g_settings_schema_unref(schema);
               return schema != nullptr;
           });
}

/// Null where the service is not installed: the registry opens even then, without sources.
Held<ESource> DefaultBook(ESourceRegistry* registry) {
    const Held<ESource> builtIn(e_source_registry_ref_source(registry, kBuiltInBook));
    return Held<ESource>(builtIn ? e_source_registry_ref_default_address_book(registry) : nullptr);
}

/// The libraries have one registry for all threads. A thread that asks for it while another gives
/// it up may be handed what is left of it: a registry without sources.
std::mutex registryLock;

void NoteLoss(EClient*, gpointer isLost) { *static_cast<bool*>(isLost) = true; }

}  // namespace

Answer Connection::openRegistry(GCancellable* cancellable) {
    if (!HasSettings())
        return {Code::unavailable, std::string(kOpening) + ": its settings are not installed"};
    Failure error;
    bus_.reset(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, &error.pointer));
    if (!bus_) return NotOpened(error.pointer);
    g_dbus_connection_set_exit_on_close(bus_.get(), false);
    registry_.reset(e_source_registry_new_sync(cancellable, &error.pointer));
    return registry_ ? Answer{} : NotOpened(error.pointer);
}

Answer Connection::open(GCancellable* cancellable) {
    if (client_) return {};
    const std::lock_guard locked(registryLock);
    if (Answer answer = openRegistry(cancellable); !answer) return answer;
    const auto source = DefaultBook(registry_.get());
    if (!source) return {Code::unavailable, std::string(kOpening) + ": there is none"};
    Failure error;
    EClient* const client =
        e_book_client_connect_sync(source.get(), kDoNotWait, cancellable, &error.pointer);
    if (!client) return NotOpened(error.pointer);
    client_.reset(E_BOOK_CLIENT(client));
    g_signal_connect(client, "backend-died", G_CALLBACK(NoteLoss), &isLost_);
    return {};
}

void Connection::drop() {
    const std::lock_guard locked(registryLock);
    if (client_) g_signal_handlers_disconnect_by_data(client_.get(), &isLost_);
    client_.reset();
    registry_.reset();
    bus_.reset();
    isLost_ = false;
}

}  // namespace contacts::eds
