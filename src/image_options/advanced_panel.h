// The Advanced panel: image order of booklets, half a turn of the image, the side the output lies
// on, banner sheet and offset of the sets, and the About box.
//
// The first two travel as numbers of the ticket, the others as PPD choices. The menus of the first
// two have rows that share one value, so the record holds more than their popups can show.
#pragma once

#include "settings/ppd_access.h"
#include "shell/base/panel_interface.h"
#include "toolbox/events.h"

namespace kalmo {

/// What a ticket without a booklet order means.
inline constexpr SInt32 kDefaultBookletOrder = 2;

/// Null before the first Open, and where the interface file lacks one.
struct AdvancedControls {
    ControlRef bookletOrder = nullptr, rotate = nullptr, outputOption = nullptr;
    ControlRef banner = nullptr, offset = nullptr;
};

struct _AdvancedContext : PanelContext {
    SInt32 bookletOrder = 0;  // the ticket's number, or what every item of the popup stands for
    SInt32 rotate = 0;        // the popup's position from 1, or the ticket's number as it was read
    SInt32 outputOption = 0;  // value of "KLOutputOption": 1 face up
    SInt32 banner = 0;        // value of "JCLBanner": 1 with a sheet
    SInt32 offset = 0;        // value of "Jog": 1 after each set
    AdvancedControls controls;
    EventHandlerRef handler = nullptr;
};

/// Builds the controls in the pane and shows the record. The failure of the interface file.
OSStatus BuildAdvancedControls(_AdvancedContext& context);
/// Shows the three settings whose menus are the same for every printer. An item that has the
/// record's value already stays chosen.
void setControls(_AdvancedContext& context);
/// The same for the two that are filled from the PPD, then for all, and redraws the pane.
void ShowAdvanced(_AdvancedContext& context);
/// Hits of the panel's controls, on their way through the pane. Never consumes one.
OSStatus pdeShellAdvancedEventHandler(EventHandlerCallRef next, EventRef event, void* context);

}  // namespace kalmo

extern "C" [[gnu::visibility("default")]] OSStatus GetAdvancedPanelInterface(
    PDEInterfaceObject** out);
