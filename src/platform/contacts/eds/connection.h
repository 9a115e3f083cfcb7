// The way to the desktop's default address book, found anew when its service has gone.
#pragma once

#include <libebook/libebook.h>

#include "contacts/eds/glib_holders.h"

namespace contacts::eds {

class Connection {
public:
    Connection() = default;
    ~Connection() { drop(); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Connects unless connected. May hang for 25 seconds, cancelled or not.
    Answer open(GCancellable* cancellable);
    void drop();
    /// Lent; open() has answered done.
    [[nodiscard]] EBookClient* client() const { return client_.get(); }
    /// The service is gone: calls will only fail. Known once the context has been served.
    [[nodiscard]] bool isLost() const { return isLost_; }

private:
    Answer openRegistry(GCancellable* cancellable);

    /// Kept, since the desktop's libraries share it and would else make one that, when the session
    /// ends, ends the program.
    Held<GDBusConnection> bus_;
    Held<ESourceRegistry> registry_;
    Held<EBookClient> client_;
    bool isLost_ = false;
};

}  // namespace contacts::eds
