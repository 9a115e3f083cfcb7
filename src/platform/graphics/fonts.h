// Installed fonts, found by PostScript name or listed for a chooser. May be used on any thread.
#pragma once

#include "foundation/collections.h"
#include "foundation/string.h"

#pragma GCC visibility push(default)

/// The font of exactly that name; when none is installed, the one that takes the place of its
/// family here, in the weight and slant that the name tells ("ArialMT" gives Liberation Sans where
/// there is no Arial). 0 for an empty name. Equal names give equal fonts. `flags` are not used.
[[nodiscard]] ATSFontRef ATSFontFindFromPostScriptName(CFStringRef name, UInt32 flags);
/// The name of the face that is really used; null for no font. The caller releases it.
[[nodiscard]] CFStringRef ATSFontCopyPostScriptName(ATSFontRef font);
[[nodiscard]] CFStringRef ATSFontCopyFamilyName(ATSFontRef font);
[[nodiscard]] CFStringRef ATSFontCopyStyleName(ATSFontRef font);

/// Names of the families that have outlines and a PostScript name, sorted, each once (strings). The
/// caller releases the array.
[[nodiscard]] CFArrayRef ATSFontCopyFamilies();
/// PostScript names of a family's faces, regular before bold, upright before slanted (strings). The
/// caller releases the array.
[[nodiscard]] CFArrayRef ATSFontCopyFacesOfFamily(CFStringRef family);

#pragma GCC visibility pop
