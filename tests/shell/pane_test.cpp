// The product's plug-in object, and its pane through whole dialogs.
#include <cstring>

#include "shell/product.h"
#include "support/dictionaries.h"
#include "support/worker_wait.h"

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
}

TEST(Pane, TheJobTypeInTheTicketTakesAFaxItsColour) {
    const std::tuple<SInt32, Boolean, const char*> rows[] = {
        {6, kSyncToTicket, ""},
        {5, kSyncToUI, ""},
        {5, kSyncToTicket, "BW"},
        {1, kSyncToTicket, "BW"}};  // never set back
    PaneDialog dialog(CreateInstance());
    ASSERT_EQ(dialog.initialize(), noErr);
    PMTicketSetSInt32(dialog.ticket, CFSTR("K"), CFSTR("com.kalmo.print.RotateBooklet180Degrees"),
                      1, false);
    for (const auto& [jobType, direction, color] : rows) {
        PMTicketSetCFDictionary(dialog.ticket, CFSTR("K"), CFSTR("com.kalmo.print.JobType"),
                                Dictionary("JobType=" + std::to_string(jobType)), false);
        EXPECT_EQ(dialog.sync(direction), noErr);
        EXPECT_EQ(Choice(dialog.ticket, CFSTR("KLMColor")), color) << jobType;
    }
    EXPECT_FALSE(
        PMTicketContainsItem(dialog.ticket, CFSTR("com.kalmo.print.RotateBooklet180Degrees")));
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
        WaitForWorkers();  // the first drawing loads what stays
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

TEST(PluginEntry, ObjectsLiveUntilTheirLastRelease) {
    void* const instance = CreateInstance();
    const IUnknownTable& unknown = **static_cast<const IUnknownTable**>(instance);
    const auto query = [&](CFUUIDBytes id, OSStatus expected) {
        void* object = instance;
        EXPECT_EQ(unknown.QueryInterface(instance, id, &object), expected);
        return object;
    };
    const auto factory = reinterpret_cast<PDEFactory>(
        CFBundleGetFunctionPointerForName(Product(), CFSTR("KalmoPDEPluginFactory")));
    EXPECT_EQ(factory(nullptr, UUID(kKalmoFactoryUUID)), nullptr) << "another type";
    EXPECT_EQ(query({}, kENoInterface), nullptr);
    CFUUIDBytes id;
    std::memcpy(id.bytes, kIUnknownUUIDBytes, sizeof id);
    EXPECT_EQ(query(id, noErr), instance);
    EXPECT_EQ(unknown.AddRef(instance), 3u);
    unknown.Release(instance);
    EXPECT_EQ(unknown.Release(instance), 1u);

    void* first = query(CFUUIDGetUUIDBytes(UUID(kDialogExtensionInterfaceUUID)), noErr);
    void* second = query(CFUUIDGetUUIDBytes(UUID(kDialogExtensionInterfaceUUID)), noErr);
    EXPECT_EQ(CFPlugInInstanceCount(UUID(kKalmoFactoryUUID)), 1);
    const auto releaseInstance = unknown.Release;
    EXPECT_EQ(releaseInstance(instance), 0u) << "queries do not count the instance";
    EXPECT_EQ(CFPlugInInstanceCount(UUID(kKalmoFactoryUUID)), 0);

    const PDEInterfaceTable* table = static_cast<PDEInterfaceObject*>(first)->table;
    EXPECT_NE(table, static_cast<PDEInterfaceObject*>(second)->table);
    EXPECT_EQ(table->Retain(first), noErr);
    const auto release = table->Release;
    void* pointer = first;
    EXPECT_EQ(release(&pointer), noErr);
    EXPECT_EQ(pointer, nullptr) << "the caller's pointer goes although the object stays";
    for (void** object : {&pointer, &first, &second}) EXPECT_EQ(release(object), noErr);
}

}  // namespace
}  // namespace kalmo::test
