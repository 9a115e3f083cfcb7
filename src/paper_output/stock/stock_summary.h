// The words and the picture for a stock.
#pragma once

#include <string>

#include "paper_output/stock/stock.h"
#include "settings/ppd_access.h"
#include "toolbox/controls.h"
#include "toolbox/events.h"

/// The installable option for paper that is put in after printing.
#define kInserterFeature CFSTR("PostPrintInserterKey")

namespace kalmo {

/// The inserter's name on this printer, else the general one. Never null.
[[nodiscard]] Owned<CFStringRef> CopyInserterName(CFBundleRef bundle);
/// The printer's words for a value of that keyword; null for a choice that it does not have.
[[nodiscard]] Owned<CFStringRef> CopyPrinterText(CFStringRef keyword, SInt32 value);
/// Null or empty when none is set.
[[nodiscard]] Owned<CFStringRef> CopyStockColorText(const Stock& stock);
/// What becomes of the number of tabs when a tab stock with words of its own has none.
enum class MissingCount { leftOut, shown };
/// Null or empty when none is set.
[[nodiscard]] Owned<CFStringRef> CopyStockTypeText(CFBundleRef bundle, const Stock& stock,
                                                   MissingCount missing);
/// A ticket may hold any text; a summary cuts each of them here.
inline constexpr CFIndex kLongestStockText = 120;
/// Lines joined by `separator`; empty when nothing is set. The caller releases it.
[[nodiscard]] CFStringRef GenerateStockSummary(CFBundleRef bundle, JobContext context,
                                               const Stock& stock, CFStringRef separator);
/// Fills the control: nothing without a stock, "the job's setting" or "the printer's default" for
/// one that says nothing. paramErr when bundle or control is missing.
OSStatus ShowStockSummary(CFBundleRef bundle, ControlRef control, const Stock* stock,
                          JobContext context);

/// The picture file for the stock's type and colour, such as "Paper_Envelope-Blue.gif"; every
/// answer exists.
[[nodiscard]] std::string StockPicture(const Stock& stock);
/// Draws the picture of the `const Stock*` that it is installed with, in any picture control.
OSStatus StockIconEventHandler(EventHandlerCallRef next, EventRef event, void* stock);

}  // namespace kalmo
