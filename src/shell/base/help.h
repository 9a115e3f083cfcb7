// Help: the page or the anchor that a Help button opens.
#pragma once

#include "foundation/bundle.h"

extern "C" {
/// paramErr when the bundle names no help book. With a page, or with no anchor, opens that page;
/// with only an anchor, looks it up. Each argument may be null.
[[gnu::visibility("default")]] OSStatus DisplayHelp(CFBundleRef bundle, CFStringRef page,
                                                    CFStringRef anchor);
}
