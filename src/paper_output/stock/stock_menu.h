// The menu button that a paper is chosen with.
//
// Every item that changes the stock carries its value as reference constant, and one of the
// commands below. Items and submenus depend on what the paper is for.
#pragma once

#include <functional>

#include "paper_output/stock/stock.h"
#include "settings/ppd_access.h"
#include "toolbox/events.h"
#include "toolbox/menus.h"

namespace kalmo {

inline constexpr UInt32 kStockSizeCommand = 'Ssiz', kStockColorCommand = 'Sclr',
                        kStockTypeCommand = 'Styp', kStockSourceCommand = 'Ssrc';

/// What a stock menu button works on. Lives at its owner as long as the button is set up.
struct StockMenuHandlerData {
    CFBundleRef bundle = nullptr;  // lent
    PPDRef ppd = nullptr;          // lent
    JobContext context = JobContext::job;
    Stock* stock = nullptr;         // lent; changed by what is chosen
    std::function<void()> changed;  // after each change
    EventHandlerRef handler = nullptr;
};

/// The status of the last menu call; paramErr on null arguments.
OSStatus PopulateStockMenu(MenuRef menu, CFBundleRef bundle, JobContext context,
                           StockMenuHandlerData* data);
OSStatus PopulateStockSizeMenu(MenuRef menu, CFBundleRef bundle, JobContext context, PPDRef ppd);
OSStatus PopulateStockColorMenu(MenuRef menu, CFBundleRef bundle, JobContext context, PPDRef ppd);
OSStatus PopulateStockTypeMenu(MenuRef menu, CFBundleRef bundle, JobContext context, PPDRef ppd);

/// Fills the button's menu and installs the handler; Finalize removes it (null is ignored).
OSStatus InitializeStockMenuButton(ControlRef button, StockMenuHandlerData* data);
void FinalizeStockMenuButton(ControlRef button, StockMenuHandlerData* data);
OSStatus StockMenuCommandEventHandler(EventHandlerCallRef next, EventRef event, void* data);

/// What a command does to the stock; false when it is none of the four. Choosing a paper undoes the
/// choice of a source.
bool ApplyStockCommand(Stock* stock, UInt32 command, SInt32 value);

}  // namespace kalmo
