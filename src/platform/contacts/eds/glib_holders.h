// GLib's and the desktop's counted things as C++ owners.
#pragma once

#include <gio/gio.h>

#include <memory>
#include <stop_token>
#include <string>

#include "contacts/address_book.h"

namespace contacts::eds {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class Object>
using Held = std::unique_ptr<Object, Unref>;

struct Free {
    void operator()(gpointer memory) const { g_free(memory); }
};
using HeldText = std::unique_ptr<char, Free>;

/// A GError in the making: `&error.pointer` for the call, gone with this.
struct Failure {
    Failure() = default;
    ~Failure() { g_clear_error(&pointer); }
    Failure(const Failure&) = delete;
    Failure& operator=(const Failure&) = delete;
    GError* pointer = nullptr;
};

/// Cancelled when the stop is requested, by the thread that requests it.
class Cancellation {
public:
    explicit Cancellation(const std::stop_token& stop) : callback_(stop, Cancel{held_.get()}) {}
    operator GCancellable*() const { return held_.get(); }

private:
    struct Cancel {
        GCancellable* cancellable;
        void operator()() const { g_cancellable_cancel(cancellable); }
    };
    Held<GCancellable> held_{g_cancellable_new()};
    std::stop_callback<Cancel> callback_;
};

/// The context that the desktop's signals come through, this thread's own while this lives.
class OwnContext {
public:
    OwnContext() : context_(g_main_context_new()) { g_main_context_push_thread_default(context_); }
    ~OwnContext() {
        g_main_context_pop_thread_default(context_);
        g_main_context_unref(context_);
    }
    OwnContext(const OwnContext&) = delete;
    OwnContext& operator=(const OwnContext&) = delete;
    operator GMainContext*() const { return context_; }

private:
    GMainContext* context_;
};

}  // namespace contacts::eds
