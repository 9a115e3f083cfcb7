// The Paper/Output panel: job type, paper, sides, finishing and output tray.
#pragma once

#include "paper_output/paper_output_record.h"
#include "paper_output/stock/stock_menu.h"
#include "shell/base/panel_interface.h"
#include "toolbox/events.h"

namespace kalmo {

/// Null before the first Open, and where the interface file lacks one.
struct PaperOutputControls {
    ControlRef jobType = nullptr, jobSetup = nullptr;
    ControlRef stockMenu = nullptr, stockSummary = nullptr, separators = nullptr;
    ControlRef sides = nullptr;
    ControlRef finishingMenu = nullptr, finishingSummary = nullptr;
    ControlRef staple = nullptr, punch = nullptr, fold = nullptr;
    ControlRef outputColor = nullptr;
    ControlRef outputBin = nullptr;
};

struct _PaperOutputContext : PanelContext {
    ControlRef pane = nullptr;
    PMPrintSession session = nullptr;  // lent
    PPDRef ppd = nullptr;              // lent
    PaperOutputRecord record;
    PaperOutputControls controls;
    StockMenuHandlerData stockMenu;
    EventHandlerRef handler = nullptr, drawHandler = nullptr;
};

/// Enabled for the job types that have something to set up.
void EnableDisableJobTypeSetupButton(_PaperOutputContext* context);
/// Leaves booklet mode, in the record, the ticket and the popup of sides.
void UnselectBooklet(_PaperOutputContext* context);

}  // namespace kalmo
