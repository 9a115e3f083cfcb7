// What the dialog itself writes into the session's tickets before the extension reads them.
//
// All values are read defensively: a ticket file may hold anything under these keys.
#pragma once

#include <string>

#include "print_dialog/job_settings.h"
#include "printing/ppd_conflicts.h"
#include "printing/ppd_papers.h"
#include "printing/session.h"

/// In the print settings: the dialog's own (dictionary).
#define kDialogSettingsKey CFSTR("com.kalmo.print.DialogSettings")
#define kCopiesKey CFSTR("Copies")
#define kRotateKey CFSTR("com.kalmo.print.AdvancedRotateImage180")

namespace kalmo {

/// An empty name removes the item.
void WriteJobName(PMPrintSession session, const std::string& name);
void WriteMakeAndModel(PMPrintSession session, const std::string& makeAndModel);
void WriteOrientation(PMPrintSession session, Orientation orientation);
/// Portrait unless the page format ticket says landscape.
[[nodiscard]] Orientation ReadOrientation(PMPrintSession session);
[[nodiscard]] bool HasOrientation(PMPrintSession session);
/// Panels ask only whether a sheet holds more than one page.
void WritePagesPerSheet(PMPrintSession session, int pagesPerSheet);

/// The settings that no panel knows: copies, collating, pages on a sheet.
void WriteDialogSettings(PMPrintSession session, const JobSettings& settings);
/// Into `settings`; a ticket without them changes nothing. Of those that are there, one that is
/// missing or makes no sense is that of a new dialog.
void ReadDialogSettings(PMPrintSession session, JobSettings* settings);

/// The choice in the PPD dictionary; empty when there is none.
[[nodiscard]] std::string ReadPPDChoice(PMPrintSession session, const std::string& keyword);
/// An empty choice removes the entry.
void WritePPDChoice(PMPrintSession session, const std::string& keyword, const std::string& choice);
/// The same for a choice that a panel may hold in a form of its own: that goes, so that the choice
/// counts when the panel reads it.
void ReplacePPDChoice(PMPrintSession session, const std::string& keyword,
                      const std::string& choice);
/// Before a Sync towards the pane that follows one towards the ticket: the pane, which writes its
/// rotation less one, then reads what it had.
void RaiseRotation(PMPrintSession session);
[[nodiscard]] bool HasChoice(const PPDDescription& printer, const std::string& keyword,
                             const std::string& choice);
/// Removes choices that the printer does not have, and returns them.
std::vector<PPDSelection> DropForeignPPDChoices(PMPrintSession session,
                                                const PPDDescription& printer);

/// Whether the job's stock names the size of that PageSize keyword, as far as stocks know it.
[[nodiscard]] bool StockHasPaper(PMPrintSession session, const std::string& keyword);
/// Whether the size of the job's stock is the window's to set: not while a booklet forces one.
[[nodiscard]] bool StockTakesPaper(PMPrintSession session);
/// Sets the size of the job's stock, where the ticket has one, takes it, and knows the paper.
void WriteStockPaper(PMPrintSession session, const std::string& keyword);

/// Whether the print settings hold what nobody but the printer may read: a passcode, how a fax
/// is dialed, who receives it.
[[nodiscard]] bool HoldsSecrets(PMPrintSession session);

}  // namespace kalmo
