// The user's watermarks: for each kind a file with the list of names and one entry per name.
//
// A change reads the file, changes it and writes it over. A file that is damaged or of another kind
// is never written over. Any thread may call. A null file name, name or value does nothing.
#pragma once

#include "toolbox/controls.h"
#include "watermark/store_file.h"
#include "watermark/watermark_data.h"

namespace kalmo {

#define kWatermarkStore CFSTR("com.kalmo.printing.watermarks.plist")
#define kFaxImageStore CFSTR("com.kalmo.printing.faximage.plist")

/// What the user saves is on the disk when the call returns. What a drawing keeps, again and again,
/// is passing: an entry that would not change is left alone, and nobody waits for the disk.
enum class WatermarkSave { lasting, passing };

/// The names in the order of the menus, to be released by the caller; what is no string is left
/// out. False, `*names` null, without a list. A control with a menu also gets the names as items,
/// each with its index in the list.
bool loadWatermarkList(CFStringRef storeName, ControlRef control, CFMutableArrayRef* names);
/// True when the list stands in the file.
bool saveWatermarkList(CFStringRef storeName, CFArrayRef names);

/// Puts the entry under the record's name, in the place of an older one. A failure is false, and
/// one line with the platform error on standard error. "WatermarkListEntries" is no name.
bool saveWatermarkData(CFStringRef storeName, const _WatermarkData& record,
                       WatermarkSave save = WatermarkSave::lasting);
/// True when there is such an entry: each key in it sets its field. Otherwise the record is
/// cleared. Glyphs that it holds (it has been zeroed once) are freed when they go.
bool loadWatermarkData(CFStringRef storeName, CFStringRef name, _WatermarkData& record);
/// Removes the entry and the first equal name of the list. True when the file was written.
bool removeWatermarkData(CFStringRef storeName, CFStringRef name);

/// Converted font data under a key that the caller chooses; only into an existing file.
bool storeFontData(CFStringRef storeName, CFStringRef key, CFDataRef data);
/// Appends what is stored, if anything.
void loadFontData(CFStringRef storeName, CFStringRef key, CFMutableDataRef data);

/// Saves draft, confidential and copy, with the texts of the bundle, and a list of these three in
/// the place of any other.
void CreateDefaultWatermarks(CFStringRef storeName, CFBundleRef bundle);
/// The names as the panel starts with them: the default ones when there is no list yet, and without
/// the first when that has no entry or an empty one (the file keeps it). Never null; the caller
/// releases it.
[[nodiscard]] CFMutableArrayRef CopyWatermarkListAtStart(CFStringRef storeName, CFBundleRef bundle);

}  // namespace kalmo
