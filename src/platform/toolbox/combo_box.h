// Fields with a list of texts to choose from, and fields of several lines.
//
// Both hold a text (SetControlTitleWithCFString, CopyControlTitleAsCFString) and send the text
// input, focus and raw key events of events.h; choosing an item of a combo box is a hit. The
// classes in an interface file are "ComboField" and "TextArea".
#pragma once

#include "toolbox/events.h"

#pragma GCC visibility push(default)

/// Behind those already there.
OSStatus AppendComboBoxItem(ControlRef combo, CFStringRef text);
[[nodiscard]] UInt16 CountComboBoxItems(ControlRef combo);
/// From 1; null outside. The caller releases it.
[[nodiscard]] CFStringRef CopyComboBoxItem(ControlRef combo, UInt16 item);

#pragma GCC visibility pop
