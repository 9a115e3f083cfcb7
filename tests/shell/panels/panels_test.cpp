// The shell and its panels: loading by name, the order of syncs, switching.
//
// A test bundle carries the plug-in's identifier, the product's resources, and panels that keep a
// diary; the shell itself is the product's module.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QToolButton>
#include <algorithm>

#include "support/bundles.h"
#include "support/pane_dialog.h"
#include "support/test_panels.h"

namespace kalmo::test {
namespace {

using Names = std::vector<CFStringRef>;

void* Symbol(const char* name) {
    static void* const module = dlopen(
        (ProductBundle() / "Contents/Linux/KalmoFeatures.so").c_str(), RTLD_NOW | RTLD_LOCAL);
    return dlsym(module, name);
}

void* CreateInstance() {
    return reinterpret_cast<PDEFactory>(Symbol("KalmoPDEPluginFactory"))(
        kCFAllocatorDefault, Owned<CFUUIDRef>::Adopt(CFUUIDCreateFromString(
                                 kCFAllocatorDefault, CFSTR(kDialogExtensionTypeUUID))));
}

void PutTestPanels(const std::filesystem::path& bundle, const std::string& executable) {
    std::filesystem::create_directories(bundle / "Contents/Linux");
    std::filesystem::copy_file(std::filesystem::path(KALMO_BINARY_DIR) / "lib/test_panels.so",
                               bundle / "Contents/Linux" / (executable + ".so"));
}

/// Kept: executables stay loaded.
CFBundleRef TestBundle() {
    static const CFBundleRef bundle = [] {
        const auto folder =
            WriteBundle(MakeFolder("bundle"), "TestPanels", kKalmoBundleIdentifier, {});
        std::filesystem::remove_all(folder / "Contents/Resources");
        std::filesystem::create_directory_symlink(ProductBundle() / "Contents/Resources",
                                                  folder / "Contents/Resources");
        PutTestPanels(folder, "TestPanels");
        return OpenBundle(folder);
    }();
    return bundle;
}

class Panels : public testing::Test {
protected:
    ~Panels() override { unsetenv("REFUSE_PANEL_3"); }

    /// What stands in the table is what the next dialog loads.
    void offer(const Names& names) {
        auto** table = static_cast<CFStringRef*>(Symbol("PanelInterfaces"));
        std::fill_n(table, 12, nullptr);
        std::ranges::copy(names, table);
    }
    void start(PaneDialog& dialog) {
        ASSERT_EQ(dialog.initialize(), noErr);
        ASSERT_EQ(dialog.open(), noErr);
        diary().clear();
    }
    static Diary& diary() {
        return *static_cast<Diary*>(
            CFBundleGetDataPointerForName(TestBundle(), CFSTR("TestPanelDiary")));
    }
    /// The entries since the last call.
    static Diary news() { return std::exchange(diary(), {}); }
    static QStringList titles(PaneDialog& dialog) {
        QStringList titles;
        const auto* selector = dialog.control<QComboBox>('Kshl', 16);
        for (int item = 0; item < selector->count(); ++item) titles << selector->itemText(item);
        return titles;
    }
    static void choose(PaneDialog& dialog, int tab) {
        auto* selector = dialog.control<QComboBox>('Kshl', 16);
        selector->setCurrentIndex(tab - 1);
        emit selector->activated(tab - 1);
    }
    static std::vector<int> shownTabs(PaneDialog& dialog, int count) {
        std::vector<int> shown;
        for (int tab = 1; tab <= count; ++tab)
            if (const QWidget* pane = dialog.control('KSgb', tab);
                pane->isVisibleTo(&dialog.window) && pane->isEnabled())
                shown.push_back(tab);
        return shown;
    }

    CFBundleRef bundle_ = TestBundle();
};

const Names kThree = {CFSTR("GetTestPanel1"), CFSTR("GetTestPanel2"), CFSTR("GetTestPanel4")};

TEST_F(Panels, WhatCannotBeLoadedIsPassedOverAndTabsStayGapless) {
    setenv("REFUSE_PANEL_3", "1", 1);
    offer({CFSTR("GetTestPanel1"), CFSTR("GetNoSuchPanel"), CFSTR("GetTestPanel3"),
           CFSTR("GetNoInterface"), CFSTR("GetHalfAnInterface"), CFSTR("GetTestPanel4"),
           CFSTR("printf"), nullptr, CFSTR("GetTestPanel5")});
    PaneDialog dialog(CreateInstance());
    start(dialog);
    EXPECT_EQ(titles(dialog), (QStringList{"Panel 1", "Panel 4"}));
    EXPECT_EQ(shownTabs(dialog, 2), std::vector{1});
}

TEST_F(Panels, AFullTableLoadsTwelve) {
    offer({CFSTR("GetTestPanel1"), CFSTR("GetTestPanel2"), CFSTR("GetTestPanel3"),
           CFSTR("GetTestPanel4"), CFSTR("GetTestPanel5"), CFSTR("GetTestPanel6"),
           CFSTR("GetTestPanel7"), CFSTR("GetTestPanel8"), CFSTR("GetTestPanel9"),
           CFSTR("GetTestPanel10"), CFSTR("GetTestPanel11"), CFSTR("GetTestPanel12")});
    PaneDialog dialog(CreateInstance());
    start(dialog);
    EXPECT_EQ(titles(dialog).size(), 12);
    choose(dialog, 12);
    EXPECT_EQ(shownTabs(dialog, 12), std::vector{12});
}

TEST_F(Panels, ThePanelShownLastIsSyncedLastInBothDirections) {
    offer(kThree);
    PaneDialog dialog(CreateInstance());
    start(dialog);
    EXPECT_EQ(dialog.sync(kSyncToTicket), noErr);
    EXPECT_EQ(news(), (Diary{"2 write", "4 write", "1 write"}));
    choose(dialog, 2);
    EXPECT_EQ(news(), (Diary{"1 write", "2 read", "4 read"}))
        << "the one being left is not re-read";
    dialog.sync(kSyncToTicket);
    dialog.sync(kSyncToUI);
    EXPECT_EQ(news(), (Diary{"1 write", "4 write", "2 write", "1 read", "4 read", "2 read"}));
    SInt32 last = 0;
    PMTicketGetSInt32(dialog.ticket(), CFSTR("last writer"), &last);
    EXPECT_EQ(last, 2);

    const auto sync = reinterpret_cast<OSStatus (*)(PMPrintSession, Boolean)>(Symbol("PDESync"));
    EXPECT_EQ(sync(nullptr, kSyncToUI), noErr) << "it takes the dialog's own session";
    EXPECT_EQ(news(), (Diary{"1 read", "4 read", "2 read"}));
    dialog.terminate();
    EXPECT_EQ(sync(dialog.session, kSyncToUI), kPMInvalidPrintSession);
}

TEST_F(Panels, SelectorButtonsAndCommandsGoRound) {
    offer(kThree);
    PaneDialog dialog(CreateInstance());
    start(dialog);
    struct {
        const char* why;
        std::function<void()> act;
        int shown;
    } const rows[] = {
        {"back from the first", [&] { dialog.control<QToolButton>('Kshl', 1966)->click(); }, 3},
        {"on from the last", [&] { dialog.control<QToolButton>('Kshl', 1967)->click(); }, 1},
        {"KFup is the next one", [&] { EXPECT_EQ(dialog.send('KFup'), noErr); }, 2},
        {"KFdn the one before", [&] { EXPECT_EQ(dialog.send('KFdn'), noErr); }, 1},
        {"selector", [&] { choose(dialog, 3); }, 3},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        row.act();
        EXPECT_EQ(shownTabs(dialog, 3), std::vector{row.shown});
        EXPECT_EQ(dialog.control<QComboBox>('Kshl', 16)->currentIndex(), row.shown - 1);
        EXPECT_TRUE(dialog.control('Kshl', 15)->isVisibleTo(&dialog.window));
    }
    news();
    choose(dialog, 3);
    EXPECT_EQ(news(), Diary()) << "it is shown already";
    EXPECT_EQ(dialog.send('none'), eventNotHandledErr);
    EXPECT_EQ(dialog.send('ok  '), eventNotHandledErr) << "nothing to object to";
}

TEST_F(Panels, ReopeningShowsThePanelThatWasLeft) {
    offer(kThree);
    PaneDialog dialog(CreateInstance());
    start(dialog);
    choose(dialog, 2);
    EXPECT_EQ(dialog.close(), noErr);
    EXPECT_EQ(dialog.send('KFup'), noErr) << "the dialog's own handler stays";
    news();
    EXPECT_EQ(dialog.open(), noErr);
    EXPECT_EQ(news(), (Diary{"1 open again", "2 open again", "4 open again", "4 write", "1 read",
                             "2 read"}));
    EXPECT_EQ(shownTabs(dialog, 3), std::vector{3});
    EXPECT_EQ(titles(dialog).size(), 3);
}

TEST_F(Panels, ALaterDialogWithFewerPanelsIsNotConfused) {
    offer(kThree);
    {
        PaneDialog dialog(CreateInstance());
        start(dialog);
        choose(dialog, 3);
    }
    EXPECT_EQ(std::ranges::count(news(), "4 terminate 0"), 1);
    offer({CFSTR("GetTestPanel1")});
    PaneDialog dialog(CreateInstance());
    start(dialog);
    EXPECT_EQ(shownTabs(dialog, 1), std::vector{1});
    dialog.sync(kSyncToTicket);
    EXPECT_EQ(news(), Diary{"1 write"});
    EXPECT_EQ(dialog.send('KFup'), noErr);
    EXPECT_EQ(shownTabs(dialog, 1), std::vector{1});
}

TEST_F(Panels, WithoutPanelsThePaneIsEmpty) {
    offer({});
    PaneDialog dialog(CreateInstance());
    start(dialog);
    EXPECT_TRUE(titles(dialog).isEmpty());
    EXPECT_EQ(dialog.send('KFup'), noErr);
    EXPECT_EQ(dialog.sync(kSyncToTicket), noErr);
}

TEST_F(Panels, TheColourPanelComesFromItsOwnPlugIn) {
    offer({CFSTR("GetTestPanel1"), CFSTR("GetColorOptionPanelInterface")});
    const auto root = MakeFolder("root");
    const auto useRoot = [](const std::filesystem::path& folder) {
        const auto path = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(folder.string()));
        SetPlugInRoot(
            Owned<CFURLRef>::Adopt(CFURLCreateWithFileSystemPath(kCFAllocatorDefault, path, true)));
    };
    useRoot(root);
    {
        PaneDialog dialog(CreateInstance());
        start(dialog);
        EXPECT_EQ(titles(dialog), QStringList{"Panel 1"}) << "it is not installed";
    }
    const auto folder = root / "Library/Printers/Kalmo/PDEs";
    std::filesystem::create_directories(folder);
    PutTestPanels(WriteBundle(folder, "ColorOptions", "com.kalmo.test.color", {}), "ColorOptions");
    PaneDialog dialog(CreateInstance());
    start(dialog);
    EXPECT_EQ(titles(dialog), (QStringList{"Panel 1", "Panel 77"}));
    useRoot("/");
}

TEST_F(Panels, ABrokenInterfaceFileIsRefusedInOneLine) {
    struct {
        const char* text;
        const char* line;
    } const rows[] = {
        {nullptr, "Initialize()::CreateNibReferenceWithCFBundle() failed.\n"},
        {"<ui version=\"4.0\"><class>A</class><widget class=\"QWidget\" name=\"A\"/></ui>",
         "Initialize()::CreateWindowFromNib() failed.\n"},
    };
    offer(kThree);
    const auto resources = CFURLRef(CFBundleCopyResourcesDirectoryURL(TestBundle()));
    const std::filesystem::path link =
        CFStringToUTF8(Owned<CFStringRef>::Adopt(CFURLCopyFileSystemPath(resources)));
    CFRelease(resources);
    for (const auto& row : rows) {
        PaneDialog dialog(CreateInstance());
        std::filesystem::rename(link, link.string() + ".away");
        std::filesystem::create_directory(link);
        if (row.text) WriteFile(link / "PDE_Shell.ui", row.text);
        testing::internal::CaptureStderr();
        EXPECT_EQ(dialog.initialize(), kPMInvalidPDEContext);
        EXPECT_TRUE(testing::internal::GetCapturedStderr().ends_with(row.line));
        std::filesystem::remove_all(link);
        std::filesystem::rename(link.string() + ".away", link);
        dialog.terminate();
    }
    EXPECT_EQ(std::ranges::count(diary(), "1 initialize"), 0);
}

}  // namespace
}  // namespace kalmo::test
