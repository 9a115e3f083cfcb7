// Bundles: a folder with Contents/Info.plist, Contents/Linux/NAME.so and Contents/Resources.
//
// A bundle stays known by its identifier until it is released by its last holder. Its executable is
// loaded at most once and never unloaded (RTLD_NODELETE).
#pragma once

#include <string>
#include <vector>

#include "foundation/collections.h"
#include "foundation/url.h"

#pragma GCC visibility push(default)

[[nodiscard]] CFTypeID CFBundleGetTypeID();
/// Null unless the folder holds a readable Info.plist. The same folder gives the same bundle.
[[nodiscard]] CFBundleRef CFBundleCreate(CFAllocatorRef, CFURLRef folder);
/// Lent; null when no such bundle has been created.
[[nodiscard]] CFBundleRef CFBundleGetBundleWithIdentifier(CFStringRef identifier);
/// Info.plist's value, borrowed; null when absent.
[[nodiscard]] CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef bundle, CFStringRef key);
[[nodiscard]] CFURLRef CFBundleCopyBundleURL(CFBundleRef bundle);
[[nodiscard]] CFURLRef CFBundleCopyResourcesDirectoryURL(CFBundleRef bundle);
/// Contents/PlugIns.
[[nodiscard]] CFURLRef CFBundleCopyBuiltInPlugInsURL(CFBundleRef bundle);
/// Contents/Resources/NAME.TYPE, or that file in the first xx.lproj of the user's languages that
/// has it, then en.lproj. `type` may be null or empty. Null when there is none.
[[nodiscard]] CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name,
                                               CFStringRef type, CFStringRef subfolder);
/// The text of `key` in TABLE.strings: requested language, its base language, en, then `value`
/// (`key` when that is null). `table` null or empty: "Localizable". The caller releases it.
[[nodiscard]] CFStringRef CFBundleCopyLocalizedString(CFBundleRef bundle, CFStringRef key,
                                                      CFStringRef value, CFStringRef table);
/// Dlopens Contents/Linux/<CFBundleExecutable>.so; true when it is loaded afterwards. On failure
/// one line with the loader's reason goes to standard error.
Boolean CFBundleLoadExecutable(CFBundleRef bundle);
/// Loads the executable when needed. Null when absent; only symbols that lie in the bundle's own
/// executable count.
[[nodiscard]] void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name);
[[nodiscard]] void* CFBundleGetDataPointerForName(CFBundleRef bundle, CFStringRef name);

/// The user's languages in order of preference, such as {"de-AT", "de", "en"}; from LANGUAGE,
/// LC_ALL, LC_MESSAGES, LANG. Always ends with "en". Read anew at each call.
[[nodiscard]] std::vector<std::string> PreferredLanguages();

/// The folder that absolute plug-in paths stand under: "/" in the product; tests point it
/// elsewhere.
[[nodiscard]] CFURLRef CopyPlugInRoot();
void SetPlugInRoot(CFURLRef folder);

#pragma GCC visibility pop
