// The desktop's address book: a module that is loaded when asked for, behind a thread of its own.
#include <dlfcn.h>

#include <filesystem>
#include <system_error>

#include "contacts/desktop_module.h"
#include "contacts/desktop_thread.h"

namespace contacts {
namespace {

/// The desktop itself gives up after 25 seconds.
constexpr std::chrono::seconds kLongestOpening(40);

std::filesystem::path ModuleFile() {
    Dl_info own{};
    if (!dladdr(reinterpret_cast<const void*>(&ModuleFile), &own) || !own.dli_fname) return {};
    return std::filesystem::path(own.dli_fname).replace_filename(kDesktopModule);
}

/// Never unloaded: the types that its libraries register cannot be.
OpenModuleBook* LoadModule(Answer& why) {
    const auto file = ModuleFile();
    void* const module =
        file.is_absolute() ? dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE) : nullptr;
    void* const entry = module ? dlsym(module, kOpenModuleBook) : nullptr;
    if (entry) return reinterpret_cast<OpenModuleBook*>(entry);
    const char* const reason = dlerror();
    why = {Code::unavailable,
           std::string("no module for the desktop's address book: ") + (reason ? reason : "")};
    return nullptr;
}

std::unique_ptr<AddressBook> OpenModule(const std::stop_token& stop, Answer& why) {
    OpenModuleBook* const open = LoadModule(why);
    return std::unique_ptr<AddressBook>(open ? open(stop, why) : nullptr);
}

/// Passes each call on to the thread. What a call fills belongs to the errand, since it may be
/// filled after the caller has left.
class DesktopBook final : public AddressBook {
public:
    explicit DesktopBook(std::unique_ptr<DesktopThread> thread) : thread_(std::move(thread)) {}

    Answer load(Contacts& contacts, const std::stop_token& stop) override {
        return ask(contacts, stop, &AddressBook::load);
    }
    Answer person(const std::string& uid, Person& person, const std::stop_token& stop) override {
        return ask(person, stop, [uid](AddressBook& book, Person& found, const auto& stopped) {
            return book.person(uid, found, stopped);
        });
    }
    Answer save(Changes& changes, const std::stop_token& stop) override {
        return ask(changes, stop, &AddressBook::save);
    }
    Answer me(Person& person, const std::stop_token& stop) override {
        return ask(person, stop, &AddressBook::me);
    }
    Answer setMe(const std::string& uid, const std::stop_token& stop) override {
        std::string own = uid;
        return ask(own, stop, &AddressBook::setMe);
    }

private:
    template <class Value, class Call>
    Answer ask(Value& value, const std::stop_token& stop, Call call) {
        const auto own = std::make_shared<Value>(value);
        const auto answer = thread_->ask(
            [own, stop, call](AddressBook& book) { return std::invoke(call, book, *own, stop); },
            stop);
        if (!answer) return {Code::cancelled, "the desktop's address book was not waited for"};
        value = std::move(*own);
        return *answer;
    }

    std::unique_ptr<DesktopThread> thread_;
};

}  // namespace

std::shared_ptr<AddressBook> OpenDesktopWithin(std::chrono::milliseconds limit,
                                               const std::stop_token& stop, Answer& why) try {
    auto thread = std::make_unique<DesktopThread>(OpenModule);
    const auto opened = thread->opened(limit, stop);
    if (!opened) {
        why = stop.stop_requested()
                  ? Answer{Code::cancelled, "the desktop's address book was not waited for"}
                  : Answer{Code::timedOut, "the desktop's address book did not answer in " +
                                               std::to_string(limit.count()) + " ms"};
        return nullptr;
    }
    why = *opened;
    return *opened ? std::make_shared<DesktopBook>(std::move(thread)) : nullptr;
} catch (const std::system_error& error) {
    why = {Code::unavailable,
           std::string("no thread for the desktop's address book: ") + error.what()};
    return nullptr;
}

std::shared_ptr<AddressBook> OpenDesktop(const std::stop_token& stop, Answer& why) {
    return OpenDesktopWithin(kLongestOpening, stop, why);
}

}  // namespace contacts
