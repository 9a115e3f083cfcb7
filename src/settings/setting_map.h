// Setting maps: rows that tie a menu item to a ticket value and a localization key.
//
// A popup filled from a map or from PPD choices keeps each row's value as the reference constant of
// its item, so a selection is found by value even where rows were left out.
#pragma once

#include <climits>

#include "foundation/bundle.h"
#include "kalmo/statuses.h"
#include "kalmo/types.h"

namespace kalmo {

/// The ticket value for "printer default", or in special-page contexts "the job's own setting"; as
/// a field of a record it means "not set".
inline constexpr SInt32 kPrinterDefault = INT32_MIN;

struct _SettingMap {
    CFStringRef key = nullptr;      // localization key; null ends the map
    SInt32 value = 0;               // what the ticket holds
    UInt32 command = 0;             // menu command, 0 for none
    CFStringRef feature = nullptr;  // installable feature the row depends on, or null
    UInt8 featureState = 0;         // offered only in this state: 1 installed, 0 not
};
using SettingMap = _SettingMap;

/// Which paper a menu, summary or default is for.
enum class JobContext : SInt32 { job = 0, cover = 2, insert = 3, exception = 4 };
enum class DialogMode : SInt32 { add = 0, edit = 1 };

/// Whether the row's feature, if it names one, is in the state that the row asks for.
[[nodiscard]] bool IsRowOffered(const SettingMap& row);
[[nodiscard]] CFIndex CountMaps(const SettingMap* map);
/// The value of row `index` (from 1). No bounds check: the caller passes a valid row.
[[nodiscard]] SInt32 UIToTicket(const SettingMap* map, CFIndex index);
/// The row (from 1) for a value, or -1. The walk stops at the first row whose value is 0, whatever
/// is sought: that row is the answer of a miss.
[[nodiscard]] CFIndex TicketToUI(const SettingMap* map, SInt32 value);
/// The key of the row that TicketToUI chooses, or null. Borrowed.
[[nodiscard]] CFStringRef LocalizedKeyForTicketValue(const SettingMap* map, SInt32 value);

}  // namespace kalmo
