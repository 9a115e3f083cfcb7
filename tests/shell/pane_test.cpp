// The product's pane through whole dialogs.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <map>

#include "shell/product.h"
#include "system/presence.h"
#include "system/system.h"

namespace kalmo::test {
namespace {

std::string StringItem(PMTicketRef ticket, const std::string& key) {
    const auto name = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(key));
    CFStringRef text = nullptr;
    if (PMTicketGetCFString(ticket, name, &text) != noErr) return "(absent)";
    return CFStringToUTF8(text) + " by " + CFStringToUTF8(PMTicketGetItemCreator(ticket, name));
}

std::string Choice(PMTicketRef ticket, CFStringRef keyword) {
    CFMutableDictionaryRef choices = nullptr;
    PMTicketGetPPDDict(ticket, &choices);
    return CFStringToUTF8(static_cast<CFStringRef>(CFDictionaryGetValue(choices, keyword)));
}

void SetJobType(PMTicketRef ticket, SInt32 type) {
    const auto job =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    const auto number =
        Owned<CFNumberRef>::Adopt(CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt32Type, &type));
    CFDictionarySetValue(job, CFSTR("JobType"), number);
    PMTicketSetCFDictionary(ticket, CFSTR("K"), CFSTR("com.kalmo.print.JobType"), job, false);
}

/// Ids that more than one widget of the window has.
std::vector<std::string> ControlsThatAreThereTwice(QWidget& window) {
    std::map<std::string, int> seen;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        ControlID id{};
        if (GetControlID(ControlFromWidget(widget), &id) == noErr && id.signature)
            ++seen[std::to_string(id.signature) + "/" + std::to_string(id.id)];
    }
    std::vector<std::string> twice;
    for (const auto& [id, count] : seen)
        if (count > 1) twice.push_back(id);
    return twice;
}

TEST(Pane, PrologueTellsSizeKindAndTitle) {
    PaneDialog dialog(CreateInstance());
    EXPECT_EQ(dialog.width, 540u);
    EXPECT_EQ(dialog.height, 491u);
    EXPECT_EQ(dialog.creator, UInt32{'pde '});
    EXPECT_EQ(CFStringToUTF8(dialog.kind), "com.kalmo.print.pde.kalmofeatureskind");
    EXPECT_EQ(CFStringToUTF8(dialog.title), "Printer features");
}

TEST(Pane, AnotherMakersPrinterIsRefused) {
    for (const char* manufacturer : {"Kalmo Inc.", "kalmo", "Other", ""}) {
        SCOPED_TRACE(manufacturer);
        PaneDialog dialog(CreateInstance(), KalmoPPD(manufacturer));
        testing::internal::CaptureStderr();
        EXPECT_EQ(dialog.initialize(), kPMInvalidPDEContext);
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "Initialize()::GetTicketFromSession() failed.\n");
        EXPECT_EQ(dialog.operations().Terminate(dialog.context, 0), noErr);
        dialog.context = nullptr;
        EXPECT_EQ(dialog.window.findChildren<QComboBox*>().size(), 0);
    }
}

TEST(Pane, InitializeJoinsTheDialog) {
    std::string page;
    Presence presence = UnattendedPresence();
    presence.helpPage = [&](CFStringRef path, CFStringRef) {
        page = CFStringToUTF8(path);
        return noErr;
    };
    InstallPresence(presence);
    PaneDialog dialog(CreateInstance());
    ASSERT_EQ(dialog.initialize(), noErr);
    CFBundleRef bundle = nullptr;
    EXPECT_EQ(GetControlProperty(ControlFromWidget(dialog.print), 'KPDE', 'MBND',
                                 sizeof(CFBundleRef), nullptr, &bundle),
              noErr);
    EXPECT_EQ(bundle, Product());
    EXPECT_EQ(dialog.send('help'), noErr);
    EXPECT_TRUE(page.ends_with("en.lproj/Help/index.htm")) << page;
    InstallPresence(UnattendedPresence());
}

TEST(Pane, SyncTowardsTheTicketWritesTheClientsItems) {
    PaneDialog dialog(CreateInstance());
    ASSERT_EQ(dialog.initialize(), noErr);
    const PMTicketRef ticket = dialog.ticket();
    PMTicketSetSInt32(ticket, CFSTR("K"), CFSTR("com.kalmo.print.RotateBooklet180Degrees"), 1,
                      false);
    ASSERT_EQ(dialog.sync(kSyncToUI), noErr);
    EXPECT_TRUE(PMTicketContainsItem(ticket, CFSTR("com.kalmo.print.RotateBooklet180Degrees")));
    ASSERT_EQ(dialog.sync(kSyncToTicket), noErr);
    EXPECT_FALSE(PMTicketContainsItem(ticket, CFSTR("com.kalmo.print.RotateBooklet180Degrees")));
    EXPECT_EQ(StringItem(ticket, "com.kalmo.print.ControllerInformation.ControllerFamily"),
              "Quillon by K");
    const auto user = Owned<CFStringRef>::Adopt(CopyConsoleUser());
    EXPECT_EQ(StringItem(ticket, "com.kalmo.print.ClientInformation.UserName"),
              user ? CFStringToUTF8(user) + " by K" : "(absent)");
}

TEST(Pane, AFaxHasNoColour) {
    PaneDialog dialog(CreateInstance());
    ASSERT_EQ(dialog.initialize(), noErr);
    SetJobType(dialog.ticket(), 6);
    dialog.sync(kSyncToTicket);
    EXPECT_EQ(Choice(dialog.ticket(), CFSTR("KLMColor")), "");
    SetJobType(dialog.ticket(), 5);
    dialog.sync(kSyncToUI);
    EXPECT_EQ(Choice(dialog.ticket(), CFSTR("KLMColor")), "");
    dialog.sync(kSyncToTicket);
    EXPECT_EQ(Choice(dialog.ticket(), CFSTR("KLMColor")), "BW");
    SetJobType(dialog.ticket(), 1);
    dialog.sync(kSyncToTicket);
    EXPECT_EQ(Choice(dialog.ticket(), CFSTR("KLMColor")), "BW") << "it is never set back";
}

TEST(Pane, NullArgumentsAreRefused) {
    PaneDialog dialog(CreateInstance());
    const PDEInterfaceTable& pane = dialog.operations();
    UInt32 flags = 0;
    EXPECT_EQ(pane.Initialize(dialog.context, &flags, nullptr, nullptr, nullptr),
              kPMInvalidPDEContext);
    EXPECT_EQ(pane.Initialize(nullptr, &flags, nullptr, nullptr, dialog.session),
              kPMInvalidPDEContext);
    EXPECT_EQ(pane.Sync(dialog.context, nullptr, kSyncToTicket), kPMInvalidPrintSession);
    EXPECT_EQ(pane.Sync(nullptr, dialog.session, kSyncToTicket), kPMInvalidPrintSession);
    CFArrayRef titles = nullptr, values = nullptr;
    EXPECT_EQ(pane.GetSummaryText(nullptr, &titles, &values), kPMInvalidPDEContext);
    for (const auto operation : {pane.Open, pane.Close})
        EXPECT_EQ(operation(nullptr), kPMInvalidPDEContext);
    EXPECT_EQ(pane.Terminate(nullptr, noErr), kPMInvalidPDEContext);
}

TEST(Pane, TheTicketReadsBackAfterAnyNumberOfOpensAndCloses) {
    PaneDialog dialog(CreateInstance());
    ASSERT_EQ(dialog.initialize(), noErr);
    for (int times = 0; times < 10; ++times) {
        ASSERT_EQ(dialog.open(), noErr);
        EXPECT_EQ(ControlsThatAreThereTwice(dialog.window), std::vector<std::string>());
        ASSERT_EQ(dialog.close(), noErr);
    }
    auto* toner = dialog.control<QCheckBox>('KPDE', 1302);
    ASSERT_NE(toner, nullptr);
    toner->click();
    dialog.sync(kSyncToTicket);
    EXPECT_EQ(Choice(dialog.ticket(), CFSTR("KLEconomode")), "Draft");
    CFArrayRef titles = reinterpret_cast<CFArrayRef>(&dialog), values = titles;
    EXPECT_EQ(dialog.operations().GetSummaryText(dialog.context, &titles, &values), noErr);
    EXPECT_TRUE(!titles && !values);
}

TEST(Pane, ALaterDialogReadsItsOwnTicket) {
    {
        PaneDialog earlier(CreateInstance());
        ASSERT_EQ(earlier.initialize(), noErr);
        ASSERT_EQ(earlier.open(), noErr);
    }
    PaneDialog dialog(CreateInstance());
    CFMutableDictionaryRef choices = nullptr;
    PMTicketGetPPDDict(dialog.ticket(), &choices);
    CFDictionarySetValue(choices, CFSTR("Resolution"), CFSTR("1200x1200dpi"));
    CFDictionarySetValue(choices, CFSTR("KLEconomode"), CFSTR("Draft"));
    ASSERT_EQ(dialog.initialize(), noErr);
    ASSERT_EQ(dialog.open(), noErr) << "the panel that an earlier dialog showed last writes first";
    dialog.sync(kSyncToTicket);
    EXPECT_EQ(Choice(dialog.ticket(), CFSTR("Resolution")), "1200x1200dpi");
    EXPECT_EQ(Choice(dialog.ticket(), CFSTR("KLEconomode")), "Draft");
}

TEST(Pane, TerminateGivesEverythingBack) {
    const auto runDialog = [] {
        PaneDialog dialog(CreateInstance());
        EXPECT_EQ(dialog.initialize(), noErr);
        EXPECT_EQ(dialog.open(), noErr);
        EXPECT_EQ(dialog.sync(kSyncToTicket), noErr);
        EXPECT_EQ(dialog.close(), noErr);
        dialog.terminate();
        EXPECT_TRUE(dialog.embedder->findChildren<QWidget*>().isEmpty());
        EXPECT_EQ(dialog.send('help'), eventNotHandledErr) << "a handler was left behind";
    };
    runDialog();  // constants and the help book stay
    const std::size_t before = CFLiveValueCount();
    for (int times = 0; times < 3; ++times) runDialog();
    EXPECT_EQ(CFLiveValueCount(), before);
}

}  // namespace
}  // namespace kalmo::test
