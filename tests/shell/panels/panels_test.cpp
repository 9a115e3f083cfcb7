// The shell and its panels: loading by name, the order of syncs, switching.
//
// A test bundle carries the plug-in's identifier, the product's resources, and panels that keep a
// diary; the shell itself is the product's module.
#include <dlfcn.h>

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

/// Kept: executables stay loaded.
CFBundleRef TestBundle() {
    static const CFBundleRef bundle = [] {
        const auto folder = WriteBundle(MakeFolder("bundle"), "Panels", kKalmoBundleIdentifier, {});
        std::filesystem::create_directory(folder / "Contents/Linux");
        std::filesystem::create_symlink(KALMO_BINARY_DIR "/lib/test_panels.so",
                                        folder / "Contents/Linux/Panels.so");
        std::filesystem::remove_all(folder / "Contents/Resources");
        std::filesystem::create_directory_symlink(ProductBundle() / "Contents/Resources",
                                                  folder / "Contents/Resources");
        return OpenBundle(folder);
    }();
    return bundle;
}

/// The entries since the last call.
Diary News() {
    return std::exchange(
        *static_cast<Diary*>(CFBundleGetDataPointerForName(TestBundle(), CFSTR("TestPanelDiary"))),
        {});
}

/// An open pane with the panels of these names.
struct Pane : PaneDialog {
    explicit Pane(const Names& names) : PaneDialog(InstanceWith(names)) {
        EXPECT_EQ(initialize(), noErr);
        EXPECT_EQ(open(), noErr);
        News();
    }
    static void* InstanceWith(const Names& names) {
        TestBundle();
        auto** table = static_cast<CFStringRef*>(Symbol("PanelInterfaces"));
        std::fill_n(table, 12, nullptr);
        std::ranges::copy(names, table);
        return reinterpret_cast<PDEFactory>(Symbol("KalmoPDEPluginFactory"))(
            kCFAllocatorDefault, UUID(kDialogExtensionTypeUUID));
    }
    QComboBox* selector() { return FindControl<QComboBox>(window, 'Kshl', 16); }
    QStringList titles() {
        QStringList titles;
        for (int item = 0; item < selector()->count(); ++item) titles << selector()->itemText(item);
        return titles;
    }
    void choose(int tab) { Pick(*selector(), selector()->itemText(tab - 1)); }
    void press(SInt32 button) { FindControl<QToolButton>(window, 'Kshl', button)->click(); }
    std::vector<int> shownTabs() {
        std::vector<int> shown;
        for (int tab = 1; tab <= selector()->count(); ++tab)
            if (const QWidget* pane = FindControl(window, 'KSgb', tab);
                pane->isVisibleTo(&window) && pane->isEnabled())
                shown.push_back(tab);
        return shown;
    }
};

const Names kThree = {CFSTR("GetPanel1"), CFSTR("GetPanel2"), CFSTR("GetPanel3")};

TEST(Panels, WhatCannotBeLoadedIsPassedOverAndTabsStayGapless) {
    Pane pane({CFSTR("GetPanel1"), CFSTR("GetNoSuchPanel"), CFSTR("GetRefusingPanel"),
               CFSTR("GetHalfAPanel"), CFSTR("printf"), CFSTR("GetPanel2"), nullptr,
               CFSTR("GetPanel3")});
    EXPECT_EQ(pane.titles(), (QStringList{"Panel 1", "Panel 2"}));
    EXPECT_EQ(pane.shownTabs(), std::vector{1});
    EXPECT_EQ(Pane({}).send('KFdn'), noErr) << "nothing to go to";
}

TEST(Panels, ThePanelShownLastIsSyncedLastInBothDirections) {
    Pane pane(kThree);
    pane.sync(kSyncToTicket);
    EXPECT_EQ(News(), (Diary{"2 write", "3 write", "1 write"}));
    pane.choose(2);
    EXPECT_EQ(News(), (Diary{"1 write", "2 read", "3 read"})) << "the one left is not re-read";
    pane.sync(kSyncToTicket);
    pane.sync(kSyncToUI);
    EXPECT_EQ(News(), (Diary{"1 write", "3 write", "2 write", "1 read", "3 read", "2 read"}));
    const auto sync = reinterpret_cast<OSStatus (*)(PMPrintSession, Boolean)>(Symbol("PDESync"));
    EXPECT_EQ(sync(nullptr, kSyncToUI), noErr) << "it takes the dialog's own session";
    EXPECT_EQ(News(), (Diary{"1 read", "3 read", "2 read"}));
    pane.terminate();
    EXPECT_EQ(sync(pane.session, kSyncToUI), kPMInvalidPrintSession);
}

TEST(Panels, SelectorButtonsAndCommandsGoRound) {
    Pane pane(kThree);
    const std::tuple<const char*, std::function<void()>, int> rows[] = {
        {"back from the first", [&] { pane.press(1966); }, 3},
        {"on from the last", [&] { pane.press(1967); }, 1},
        {"KFup is the next one", [&] { pane.send('KFup'); }, 2},
        {"KFdn the one before", [&] { pane.send('KFdn'); }, 1},
        {"selector", [&] { pane.choose(3); }, 3},
        {"closing and opening", [&] { pane.close(), pane.open(); }, 3},
    };
    for (const auto& [why, act, shown] : rows) {
        SCOPED_TRACE(why);
        act();
        EXPECT_EQ(pane.shownTabs(), std::vector{shown});
        EXPECT_EQ(pane.selector()->currentIndex(), shown - 1);
    }
    News();
    pane.choose(3);
    EXPECT_EQ(News(), Diary()) << "it is shown already";
}

}  // namespace
}  // namespace kalmo::test
