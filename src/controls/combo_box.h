// A field with fixed choices, and below them what the user typed before.
#pragma once

#include "foundation/bundle.h"
#include "foundation/character_set.h"
#include "foundation/number.h"
#include "settings/setting_map.h"
#include "toolbox/combo_box.h"

namespace kalmo {

inline constexpr UInt32 kComboBoxNumber = 1, kComboBoxText = 2;
/// What reading an empty field answers: no failure.
inline constexpr OSStatus kComboBoxEmpty = 1000;

/// The control; what belongs to the field is kept with it.
using KComboBox = ControlRef;

/// All references are lent and may be null.
struct _KComboBoxOptions {
    UInt32 kind = kComboBoxText;  // other kinds are not validated
    CFBundleRef bundle = nullptr;
    const SettingMap* map = nullptr;   // the fixed choices, up to the first row of value 0
    CFStringRef historyKey = nullptr;  // null: nothing is remembered
    SInt32 historyLimit = 0;           // entries kept; 0: all
    SInt32 minimumLength = 0, maximumLength = 0;
    CFTypeRef characters = nullptr;  // allowed in texts: a string or a character set
    SInt32 minimumValue = 0, maximumValue = 0;
};

/// Fills the field and keeps what it needs with the control. The status of the last item.
OSStatus KComboBoxInitializeWithMapAndHistory(KComboBox combo, const _KComboBoxOptions& options);
/// A string as it is; a number as its item, else in the user's locale. paramErr on null.
OSStatus KComboBoxSetValue(KComboBox combo, CFTypeRef value);
/// A number for an item, and for a typed number; else a string. The caller releases it.
/// kComboBoxEmpty for an empty field.
OSStatus KComboBoxCopyValue(KComboBox combo, CFTypeRef* value);
/// `save`: a typed text that is no item yet goes to the front of its history. Frees what
/// Initialize kept.
void KComboBoxFinalize(KComboBox combo, bool save);

}  // namespace kalmo
