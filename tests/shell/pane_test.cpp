// The product's pane through whole dialogs.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <filesystem>
#include <set>

#include "shell/product.h"
#include "support/worker_wait.h"
#include "system/presence.h"

namespace kalmo::test {
namespace {

CFMutableDictionaryRef Choices(PMTicketRef ticket) {
    CFMutableDictionaryRef choices = nullptr;
    PMTicketGetPPDDict(ticket, &choices);
    return choices;
}

std::string Choice(PMTicketRef ticket, CFStringRef keyword) {
    return CFStringToUTF8(static_cast<CFStringRef>(CFDictionaryGetValue(Choices(ticket), keyword)));
}

TEST(Pane, PrologueAndInitializeJoinTheDialog) {
    std::string page;
    Presence presence = UnattendedPresence();
    presence.helpPage = [&](CFStringRef path, CFStringRef) {
        page = CFStringToUTF8(path);
        return noErr;
    };
    InstallPresence(presence);
    PaneDialog dialog(CreateInstance());
    EXPECT_EQ(std::tuple(dialog.width, dialog.height), std::tuple(540u, 491u));
    EXPECT_EQ(CFStringToUTF8(dialog.title), "Printer features");
    ASSERT_EQ(dialog.initialize(), noErr);
    CFBundleRef bundle = nullptr;
    GetControlProperty(ControlFromWidget(dialog.print), 'KPDE', 'MBND', sizeof(CFBundleRef),
                       nullptr, &bundle);
    EXPECT_EQ(bundle, Product());
    EXPECT_EQ(dialog.send('help'), noErr);
    EXPECT_TRUE(page.ends_with("en.lproj/Help/index.htm")) << page;
    InstallPresence(UnattendedPresence());
}

TEST(Pane, TheJobTypeInTheTicketTakesAFaxItsColour) {
    const struct {
        SInt32 jobType;
        Boolean direction;
        const char* color;
    } rows[] = {{6, kSyncToTicket, ""},
                {5, kSyncToUI, ""},
                {5, kSyncToTicket, "BW"},
                {1, kSyncToTicket, "BW"}};  // never set back
    PaneDialog dialog(CreateInstance());
    ASSERT_EQ(dialog.initialize(), noErr);
    PMTicketSetSInt32(dialog.ticket, CFSTR("K"), CFSTR("com.kalmo.print.RotateBooklet180Degrees"),
                      1, false);
    for (const auto& row : rows) {
        const auto job =
            Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
        const auto type = Owned<CFNumberRef>::Adopt(
            CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt32Type, &row.jobType));
        CFDictionarySetValue(job, CFSTR("JobType"), type);
        PMTicketSetCFDictionary(dialog.ticket, CFSTR("K"), CFSTR("com.kalmo.print.JobType"), job,
                                false);
        EXPECT_EQ(dialog.sync(row.direction), noErr);
        EXPECT_EQ(Choice(dialog.ticket, CFSTR("KLMColor")), row.color) << row.jobType;
    }
    EXPECT_FALSE(
        PMTicketContainsItem(dialog.ticket, CFSTR("com.kalmo.print.RotateBooklet180Degrees")));
}

TEST(Pane, OpeningAgainMakesNoControlTwice) {
    PaneDialog dialog(CreateInstance());
    ASSERT_EQ(dialog.initialize(), noErr);
    for (int times = 0; times < 2; ++times) {
        ASSERT_EQ(dialog.open(), noErr);
        ASSERT_EQ(dialog.close(), noErr);
    }
    std::set<std::pair<OSType, SInt32>> seen;
    for (QWidget* widget : dialog.window.findChildren<QWidget*>()) {
        ControlID id{};
        if (GetControlID(ControlFromWidget(widget), &id) == noErr && id.signature) {
            EXPECT_TRUE(seen.emplace(id.signature, id.id).second) << id.id;
        }
    }
}

TEST(Pane, ALaterDialogReadsItsOwnTicketAndNothingIsLeft) {
    const auto runDialog = [] {
        PaneDialog dialog(CreateInstance());
        CFDictionarySetValue(Choices(dialog.ticket), CFSTR("Resolution"), CFSTR("1200x1200dpi"));
        EXPECT_EQ(dialog.initialize(), noErr);
        EXPECT_EQ(dialog.open(), noErr);
        dialog.sync(kSyncToTicket);
        EXPECT_EQ(Choice(dialog.ticket, CFSTR("Resolution")), "1200x1200dpi")
            << "the panel that an earlier dialog showed last writes first";
        dialog.send('KFup');
        const bool both =
            FindControl(dialog.window, 'KPpo', 102) && FindControl(dialog.window, 'KPDE', 1301);
        EXPECT_TRUE(both) << "a panel did not open";
        dialog.terminate();
        WaitForWorkers();
        EXPECT_TRUE(dialog.embedder->findChildren<QWidget*>().isEmpty());
        EXPECT_EQ(dialog.send('help'), eventNotHandledErr) << "a handler was left behind";
    };
    runDialog();  // constants and the help book stay
    const auto alive = [] {
        return std::tuple(CFLiveValueCount(), QApplication::allWidgets().size(),
                          std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
    };
    const auto before = alive();
    for (int times = 0; times < 10; ++times) runDialog();
    EXPECT_EQ(alive(), before);
}

}  // namespace
}  // namespace kalmo::test
