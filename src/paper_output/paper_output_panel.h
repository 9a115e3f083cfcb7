// The Paper/Output panel: job type, paper, sides, finishing and output tray.
//
// The record decides; the controls show it and hand the user's choices to its rules.
#pragma once

#include "paper_output/paper_output_record.h"
#include "paper_output/stock/stock_menu.h"
#include "shell/base/panel_interface.h"
#include "toolbox/events.h"

namespace kalmo {

/// Null before the first Open, and where the printer or the interface file has none.
struct PaperOutputControls {
    ControlRef jobType = nullptr, jobSetup = nullptr, jobTypePicture = nullptr;
    ControlRef stockMenu = nullptr, stockPicture = nullptr, separators = nullptr;
    ControlRef sides = nullptr, sidesPicture = nullptr;
    ControlRef staple = nullptr, staplePicture = nullptr;
    ControlRef punch = nullptr, punchPicture = nullptr;
    ControlRef fold = nullptr, foldPicture = nullptr;
    ControlRef outputColor = nullptr, outputColorPicture = nullptr;
    ControlRef outputBin = nullptr, outputBinPicture = nullptr;
    ControlRef finishingMenu = nullptr, finishingPicture = nullptr;
    /// What the summaries stand in.
    ControlRef stockSummaryPlace = nullptr, finishingSummaryPlace = nullptr;
};

/// A text that Close takes away and the next Open makes again at the same place.
struct SummaryView {
    ControlRef text = nullptr;
    Rect bounds;
};

struct _PaperOutputContext : PanelContext {
    PaperOutputRecord record;
    SInt32 outputColor = 0;  // value of "KLColorMode", shown only
    PaperOutputControls controls;
    SummaryView stockSummary, finishingSummary;
    StockMenuHandlerData stockMenu;
    EventHandlerRef handler = nullptr, drawHandler = nullptr;
};

/// The session's print settings; kPMNoTicket when there are none.
[[nodiscard]] PMTicketRef PrintSettingsOf(const _PaperOutputContext& context);

/// Builds the controls that the printer has something for, and shows the record. The failure of the
/// interface file.
OSStatus BuildPaperOutputControls(_PaperOutputContext& context);
void MakeSummaryViews(_PaperOutputContext& context);
void DisposeSummaryViews(_PaperOutputContext& context);

// Record to controls and pictures; nothing before they exist.
void ShowPaperOutput(_PaperOutputContext& context);
void ShowJobType(_PaperOutputContext& context);
void ShowStock(_PaperOutputContext& context);
void ShowSides(_PaperOutputContext& context);
void ShowFinishing(_PaperOutputContext& context);

/// Fills the popup with the trays that the printer has. The number of items.
SInt32 PopulateOutputDestination(ControlRef popup, PPDRef ppd);
/// Enabled for the job types that have something to set up.
void EnableDisableJobTypeSetupButton(_PaperOutputContext* context);
/// Leaves booklet mode, in the record, the ticket and the popup of sides.
void UnselectBooklet(_PaperOutputContext* context);
/// The booklet dialog and all that follows from its answer.
void RunBookletCommand(_PaperOutputContext& context);
/// What the paper forbids is taken away from the finishing.
void CoupleFinishing(_PaperOutputContext& context);

/// Hits and menu commands of the panel's controls, on their way through the pane. Consumes none.
OSStatus pdeShellPaperOutputEventHandler(EventHandlerCallRef next, EventRef event, void* context);
/// Draws the picture controls.
OSStatus pdeShellPaperOutputDrawIconEventHandler(EventHandlerCallRef next, EventRef event,
                                                 void* context);
/// Gives every picture control the words for what it shows now, and draws it anew.
void DescribePictures(_PaperOutputContext& context);

}  // namespace kalmo

extern "C" [[gnu::visibility("default")]] OSStatus GetPaperOutputPanelInterface(
    PDEInterfaceObject** out);
