// The rules of a profile's name, which the record's accessors and its ticket share.
#pragma once

#include "image_options/full_color_options.h"

namespace kalmo {

/// -50 when `kind` asks for a name and `name` is null or too long; the name is kept only then.
OSStatus SetProfile(ColorProfile& profile, SInt32 kind, CFStringRef name);

}  // namespace kalmo
