#include "shell/base/panel_interface.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "shell/base/current_session.h"
#include "shell/base/plugin_bundle.h"
#include "support/bundles.h"
#include "support/private_home.h"

namespace kalmo {
namespace {

TEST(PanelInterface, ThreeSlotsAreEmptyAndTheRestIsCopied) {
    PDEInterfaceTable operations{};
    operations.Retain = [](void*) { return OSStatus{1}; };
    operations.Prologue = KalmoPDEProlog;
    operations.Terminate = KalmoPDETerminate;
    PDEInterfaceObject* object = nullptr;
    ASSERT_EQ(CreatePanelInterface(operations, &object), noErr);
    operations.Terminate = nullptr;
    EXPECT_EQ(object->table->Retain, nullptr);
    EXPECT_EQ(object->table->Prologue, KalmoPDEProlog);
    EXPECT_EQ(object->table->Terminate, KalmoPDETerminate);
    DisposePanelInterface(object);
    DisposePanelInterface(nullptr);
}

TEST(PanelInterface, ExceptionsBecomeTheStatus) {
    EXPECT_EQ(WithoutExceptions(kPMInvalidPDEContext, [] { return fnfErr; }), fnfErr);
    EXPECT_EQ(WithoutExceptions(kPMInvalidPDEContext,
                                []() -> OSStatus { throw std::runtime_error("lost"); }),
              kPMInvalidPDEContext);
    EXPECT_EQ(WithoutExceptions(paramErr, []() -> OSStatus { throw 1; }), paramErr);
}

TEST(PanelInterface, PrologueAnswersTheTitleOnlyWhenThereIsOne) {
    const auto bundle = Owned<CFBundleRef>::Adopt(test::OpenBundle(test::WriteBundle(
        test::MakeFolder("bundle"), "Panels", kKalmoBundleIdentifier,
        {{"Resources/en.lproj/Localizable.strings", "\"ImageOptions\" = \"Image Options\";\n"}})));
    for (const auto& [key, expected] :
         {std::pair{"ImageOptions", "Image Options"}, {"Unheard", "untouched"}}) {
        PanelContext context;
        OSType creator = 0;
        UInt32 width = 9, height = 9;
        CFStringRef kind = nullptr, title = CFSTR("untouched");
        AnswerPanelPrologue(context, CFStringMakeConstant(key), &creator, &kind, &title, &width,
                            &height);
        EXPECT_EQ(CFStringToUTF8(title), expected);
        EXPECT_EQ(CFStringToUTF8(kind), "com.kalmo.print.pde.kalmofeatureskind");
        EXPECT_EQ(creator, OSType{'Kshl'});
        EXPECT_EQ(context.bundle, bundle.get());
        EXPECT_EQ(width + height, 0u);
    }
}

TEST(CurrentSession, LivesFromInitializeToTerminate) {
    const auto session = reinterpret_cast<PMPrintSession>(&gBundle);
    KalmoPDEInitialize(nullptr, nullptr, nullptr, nullptr, session);
    KalmoPDESync(nullptr, nullptr, kSyncToTicket);
    KalmoPDEClose(nullptr);
    EXPECT_EQ(GetCurrentPrintSession(), session);
    KalmoPDETerminate(nullptr, noErr);
    EXPECT_EQ(GetCurrentPrintSession(), nullptr);
}

TEST(PluginBundle, PrivateBundleIsGivenOnlyWithItsExecutable) {
    const auto folder = test::WriteBundle(test::MakeFolder("bundle"), "Host", "com.example.h", {});
    const auto inside = folder / "Contents/PlugIns";
    const auto ready = test::WriteBundle(inside, "Ready", "com.example.ready", {});
    test::WriteBundle(inside, "Hollow", "com.example.hollow", {});
    std::filesystem::create_directory(ready / "Contents/Linux");
    std::filesystem::create_symlink(std::string(KALMO_BINARY_DIR) + "/lib/libkalmoplatform.so.1",
                                    ready / "Contents/Linux/Ready.so");
    const auto bundle = Owned<CFBundleRef>::Adopt(test::OpenBundle(folder));
    for (const auto& [name, loads] :
         {std::pair{"Ready.plugin", true}, {"Hollow.plugin", false}, {"Missing.plugin", false}}) {
        SCOPED_TRACE(name);
        CFBundleRef plugin = bundle;
        EXPECT_EQ(LoadPrivateBundle(bundle, CFStringMakeConstant(name), &plugin), loads);
        EXPECT_EQ(plugin != nullptr, loads);
        if (loads) CFRelease(plugin);
    }
}

}  // namespace
}  // namespace kalmo
