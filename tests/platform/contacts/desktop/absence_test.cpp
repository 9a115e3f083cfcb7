#include <thread>

#include "platform/contacts/desktop/private_desktop.h"

namespace {

using namespace kalmo::test;
using namespace std::chrono_literals;
using contacts::Code;
using contacts::Source;

/// Beyond the three seconds that a desktop is given, what a busy machine takes. The desktop's
/// libraries alone would take 25 seconds.
constexpr auto kSoon = 3s + 6s;

void ExpectFolder(const std::string& folder, Code why) {
    contacts::Opened opened;
    EXPECT_LT(TimeOf([&] {
                  opened = contacts::OpenAddressBook({Source::automatic, folder}, {});
              }),
              kSoon);
    EXPECT_TRUE(opened.book);
    EXPECT_EQ(opened.source, Source::folder);
    EXPECT_EQ(opened.folder, folder);
    EXPECT_EQ(opened.answer.code, why) << opened.answer.text;
    EXPECT_NE(opened.answer.text, "");
}

TEST(AbsentAddressBook, GivesWayToTheFolderWhereThereIsNone) {
    const char* const bus = "DBUS_SESSION_BUS_ADDRESS";
    const std::tuple<const char*, Services, const char*, const char*, Code> rows[] = {
        {"no bus", Services::none, bus, "", Code::unavailable},
        {"nobody at the socket", Services::none, bus, "unix:path=/nowhere", Code::unavailable},
        {"no service", Services::none, nullptr, nullptr, Code::unavailable},
        {"a service that hangs", Services::hanging, nullptr, nullptr, Code::timedOut},
        {"no settings", Services::installed, "XDG_DATA_DIRS", "/nowhere", Code::unavailable},
    };
    for (const auto& [why, services, variable, value, code] : rows) {
        SCOPED_TRACE(why);
        const PrivateDesktop desktop(services);
        // The process ends at once, too, whatever hangs in it.
        EXPECT_LT(TimeOf([&] {
                      InOwnProcess([&] {
                          if (variable) setenv(variable, value, 1);
                          ExpectFolder(MakeFolder("contacts"), code);
                      });
                  }),
                  kSoon + 1s);
        unsetenv(bus);
    }
}

TEST(AbsentAddressBook, IsGivenUpAsSoonAsTheUserStops) {
    const PrivateDesktop desktop(Services::hanging);
    InOwnProcess([] {
        for (const Source source : {Source::desktop, Source::automatic}) {
            std::stop_source user;
            const std::jthread impatience([&user] {
                std::this_thread::sleep_for(200ms);
                user.request_stop();
            });
            contacts::Opened opened;
            EXPECT_LT(TimeOf([&] {
                          opened = contacts::OpenAddressBook({source, {}}, user.get_token());
                      }),
                      2s);
            EXPECT_FALSE(opened.book);
            EXPECT_EQ(opened.answer.code, Code::cancelled);
        }
    });
}

}  // namespace
