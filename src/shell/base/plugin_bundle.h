// The plug-in's own bundle, and private bundles inside it.
#pragma once

#include "foundation/bundle.h"

/// Set by the shell's Prologue; lent.
extern CFBundleRef gBundle;

extern "C" [[gnu::visibility("default")]] CFBundleRef GetPDEBundle();

namespace kalmo {

/// Opens the bundle called `name` in the plug-in's PlugIns folder and loads its executable. On
/// failure false, and `*plugin` is null; else the caller releases it.
bool LoadPrivateBundle(CFBundleRef bundle, CFStringRef name, CFBundleRef* plugin);

}  // namespace kalmo
