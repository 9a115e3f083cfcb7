// The shell's record, one per dialog, and the two numbers that outlive a dialog.
#pragma once

#include <memory>
#include <vector>

#include "foundation/bundle.h"
#include "kalmo/pde.h"
#include "toolbox/events.h"

namespace kalmo {

/// The tab index of a record that every loop passes over.
inline constexpr SInt32 kNoTab = -1;

struct PanelRecord {
    PDEInterfaceTable operations{};  // a copy; slots 0 to 2 empty
    PDEContext context = nullptr;    // the panel's own
    Owned<CFStringRef> title;        // null when the panel has told none
    Owned<CFStringRef> kind;
    Owned<CFBundleRef> plugIn;  // the panel's bundle, kept known while the panel lives
    ControlRef pane = nullptr;  // made by Initialize, placed by the first Open
    SInt32 tabIndex = kNoTab;   // position in the selector, from 1
};

struct PDEShellContext {
    bool openedOnce = false;
    CFBundleRef bundle = nullptr;  // lent
    Owned<CFStringRef> title;
    PMPrintSession session = nullptr;  // lent, known from Initialize on
    std::vector<PanelRecord> panels;
    ControlRef parent = nullptr;     // lent by the host
    ControlRef shellPane = nullptr;  // 'Kshl' 10
    ControlRef selector = nullptr;   // 'Kshl' 16
    ControlRef cover = nullptr;      // 'Kshl' 15, hidden while panels change
    ControlRef container = nullptr;  // 'Kshl' 17
    ControlRef defaultButton = nullptr, cancelButton = nullptr;
    SInt16 panelCount = 0;
    std::vector<EventHandlerRef> dialogHandlers;  // installed by Initialize
    EventHandlerRef openHandler = nullptr;        // installed by Open, removed by Close
    EventHandlerRef paneHandler = nullptr;        // installed by the first Open
    bool nibLoaded = false;
};

/// The shell of the running dialog, for PDESync.
extern PDEShellContext* gContext;
/// The tab shown last, 0 before the first; of an earlier dialog until this one shows a panel, and
/// then possibly above this dialog's panel count.
extern SInt32 lastTabIndex;
/// The tab to show on Open.
extern SInt32 gCurrentPanel;

/// Calls `visit` with each record that has a tab, in tab order.
template <typename Visitor>
void ForEachPanel(PDEShellContext& shell, Visitor&& visit) {
    for (PanelRecord& panel : shell.panels)
        if (panel.tabIndex != kNoTab) visit(panel);
}

}  // namespace kalmo
