#include "settings/setting_map.h"

#include "settings/installable_options.h"

namespace kalmo {
namespace {

/// The row where the search for `value` ends: the match, the first row of value 0, or the
/// terminator. Maps that use 0 put it where a miss should land.
const SettingMap* WalkTo(const SettingMap* map, SInt32 value) {
    const SettingMap* row = map;
    while (row->key && row->value != 0 && !(row->value == value && IsRowOffered(*row))) ++row;
    return row;
}

}  // namespace

bool IsRowOffered(const SettingMap& row) {
    return !row.feature || getInstalledFeature(row.feature) == (row.featureState != 0);
}

CFIndex CountMaps(const SettingMap* map) {
    CFIndex count = 0;
    while (map && map[count].key) ++count;
    return count;
}

SInt32 UIToTicket(const SettingMap* map, CFIndex index) { return map[index - 1].value; }

CFIndex TicketToUI(const SettingMap* map, SInt32 value) {
    if (!map) return -1;
    const SettingMap* row = WalkTo(map, value);
    return row->key ? row - map + 1 : -1;
}

CFStringRef LocalizedKeyForTicketValue(const SettingMap* map, SInt32 value) {
    return map ? WalkTo(map, value)->key : nullptr;
}

}  // namespace kalmo
