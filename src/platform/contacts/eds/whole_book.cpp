#include "contacts/eds/whole_book.h"

#include <chrono>

#include "contacts/eds/failures.h"

namespace contacts::eds {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds kLongestSilence(30);
/// How often a silent service is thought about.
constexpr guint kTickMilliseconds = 100;
constexpr const char* kEveryCard = "(contains \"x-evolution-any-field\" \"\")";
constexpr const char* kLoading = "loading the desktop's address book";

struct Reading {
    const TakeCard& take;
    Failure& error;
    Clock::time_point lastHeard = Clock::now();
    bool isComplete = false, isOutOfMemory = false;
};

void Take(EContact* contact, const TakeCard& take) {
    const auto* const uid = static_cast<const char*>(e_contact_get_const(contact, E_CONTACT_UID));
    take(uid ? uid : "", TextOf(contact));
}

void Added(EBookClientView*, const GSList* contacts, gpointer data) noexcept {
    auto& reading = *static_cast<Reading*>(data);
    reading.lastHeard = Clock::now();
    try {
        for (const GSList* each = contacts; each; each = each->next)
            Take(E_CONTACT(each->data), reading.take);
    } catch (...) {
        reading.isOutOfMemory = true;
    }
}

void Completed(EBookClientView*, const GError* error, gpointer data) {
    auto& reading = *static_cast<Reading*>(data);
    reading.isComplete = true;
    if (error) reading.error.pointer = g_error_copy(error);
}

gboolean Tick(gpointer) { return G_SOURCE_CONTINUE; }

/// Wakes the context now and then while this lives.
class Ticks {
public:
    explicit Ticks(GMainContext* context) : source_(g_timeout_source_new(kTickMilliseconds)) {
        g_source_set_callback(source_, Tick, nullptr, nullptr);
        g_source_attach(source_, context);
    }
    ~Ticks() {
        g_source_destroy(source_);
        g_source_unref(source_);
    }
    Ticks(const Ticks&) = delete;
    Ticks& operator=(const Ticks&) = delete;

private:
    GSource* source_;
};

Answer Receive(const Connection& connection, GCancellable* cancellable, const Reading& reading) {
    const std::unique_ptr<GMainContext, decltype(&g_main_context_unref)> context(
        e_client_ref_main_context(E_CLIENT(connection.client())), g_main_context_unref);
    const Ticks ticks(context.get());
    while (!reading.isComplete && !reading.isOutOfMemory) {
        g_main_context_iteration(context.get(), true);
        if (g_cancellable_is_cancelled(cancellable)) return {Code::cancelled, kLoading};
        if (connection.isLost())
            return {Code::failed, std::string(kLoading) + ": its service went"};
        if (Clock::now() - reading.lastHeard > kLongestSilence)
            return {Code::timedOut, std::string(kLoading) + ": its service keeps silent"};
    }
    if (reading.isOutOfMemory) return {Code::failed, std::string(kLoading) + ": out of memory"};
    return reading.error.pointer ? AnswerTo(reading.error.pointer, kLoading) : Answer{};
}

}  // namespace

std::string TextOf(EContact* contact) {
    const HeldText text(e_vcard_to_string(E_VCARD(contact), EVC_FORMAT_VCARD_30));
    return text ? text.get() : "";
}

Answer ReadWholeBook(const Connection& connection, GCancellable* cancellable, const TakeCard& take,
                     Failure& error) {
    EBookClientView* made = nullptr;
    if (!e_book_client_get_view_sync(connection.client(), kEveryCard, &made, cancellable,
                                     &error.pointer)) {
        return AnswerTo(error.pointer, kLoading);
    }
    const Held<EBookClientView> view(made);
    Reading reading{take, error};
    g_signal_connect(made, "objects-added", G_CALLBACK(Added), &reading);
    g_signal_connect(made, "complete", G_CALLBACK(Completed), &reading);
    e_book_client_view_start(made, &error.pointer);
    Answer answer = error.pointer ? AnswerTo(error.pointer, kLoading)
                                  : Receive(connection, cancellable, reading);
    g_signal_handlers_disconnect_by_data(made, &reading);
    return answer;
}

}  // namespace contacts::eds
