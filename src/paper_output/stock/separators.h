// Sheets that part the transparencies of a job.
#pragma once

#include "paper_output/stock/stock.h"
#include "printing/ticket.h"
#include "toolbox/controls.h"

namespace kalmo {

inline constexpr SInt32 kNoSeparators = 1, kBlankSeparators = 2, kPrintedSeparators = 3;

/// `option` is a value of _SeparatorOptionMap.
struct Separators {
    SInt32 option = kNoSeparators;
    Stock stock;
};

/// Missing keys and values in no map: no separators, the default stock. Always 0 but for a missing
/// ticket.
OSStatus SyncSeparatorsFromTicket(PMTicketRef ticket, Separators* separators);
/// The status of the last write.
OSStatus SyncSeparatorsToTicket(PMTicketRef ticket, const Separators& separators);
/// Adds lines about the separators to the summary's text; nothing while there are none.
void AppendSeparatorSummary(ControlRef summary, CFBundleRef bundle, SInt32 separatorOption,
                            const Stock& separatorStock);
/// kModalOK with the new choice, else kModalCancel or the failure of the interface file, and
/// nothing changed.
SInt32 RunModalSeparatorsDialog(CFBundleRef bundle, Separators* separators);

}  // namespace kalmo
