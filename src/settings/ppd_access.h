// The current printer's PPD file: opened once, asked for texts, defaults and conflicts. With
// platform/printing/ppd_papers.cpp the implementation is the only place that knows libcups' PPD
// calls.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "foundation/string.h"
#include "kalmo/types.h"
#include "printing/ticket.h"

struct ppd_file_s;  // libcups

namespace kalmo {

using PPDRef = ppd_file_s*;

/// The current printer's PPD, opened on the first call and kept until PPDCloseCurrent; null when it
/// cannot be found or opened (the next call tries again). Waits for no server.
[[nodiscard]] PPDRef PPDGetCurrent();
void PPDCloseCurrent();

/// A copy of the choice in the ticket's PPD dictionary, or null. The caller releases it.
[[nodiscard]] CFStringRef PPDCopyCurrentChoice(PMTicketRef ticket, CFStringRef keyword);
/// Stores the choice; does nothing when an argument is null or there is no such ticket.
void PPDSetCurrentChoice(PMTicketRef ticket, CFStringRef keyword, CFStringRef choice);

[[nodiscard]] CFStringEncoding PPDGetEncoding(PPDRef ppd);
/// The choice's text in the PPD, or null. The caller releases it.
[[nodiscard]] CFStringRef PPDCopyChoiceText(PPDRef ppd, CFStringRef keyword, CFStringRef choice);
/// The option's default choice, or null. The caller releases it.
[[nodiscard]] CFStringRef PPDCopyDefaultChoice(PPDRef ppd, CFStringRef keyword);
/// The value of the ticket's choice, else of the PPD's default; -1 for a choice that is not in the
/// map; untouched when there is neither.
void PPDGetTicketValueForChoiceOrDefault(PPDRef ppd, PMTicketRef ticket, CFStringRef keyword,
                                         SInt32* value);

/// Sides of the papers of one's own that a printer takes, in pt.
struct PPDCustomSizes {
    double minimumWidth = 0, maximumWidth = 0, minimumLength = 0, maximumLength = 0;
};
/// Nothing when the printer takes none, or its PPD makes no sense of it.
[[nodiscard]] std::optional<PPDCustomSizes> PPDGetCustomSizes(PPDRef ppd);

/// Sides of a paper in pt, upright; nothing when the PPD has none of that name.
struct PPDPaperSize {
    double width = 0, length = 0;
};
[[nodiscard]] std::optional<PPDPaperSize> PPDGetPaperSize(PPDRef ppd, CFStringRef choice);

/// "" when the PPD names none.
[[nodiscard]] std::string PPDManufacturer(PPDRef ppd);
void PPDMarkDefaults(PPDRef ppd);
/// Marks the choice; the number of conflicts among all that is marked.
int PPDMarkChoice(PPDRef ppd, const char* keyword, const char* choice);
/// Whether the PPD has the option, with at least one choice.
[[nodiscard]] bool PPDOffersChoices(PPDRef ppd, CFStringRef keyword);
/// Calls for each choice of the option in PPD order; false when the PPD has no such option.
bool PPDForEachChoice(PPDRef ppd, CFStringRef keyword,
                      const std::function<void(const char* optionKeyword, const char* choice,
                                               const char* text)>& visit);
/// Calls with option and first marked choice for each option of the group that has one; false when
/// the PPD has no group of exactly that name.
bool PPDForEachMarkedChoiceOfGroup(
    PPDRef ppd, const char* group,
    const std::function<void(const char* option, const char* choice)>& visit);

}  // namespace kalmo
