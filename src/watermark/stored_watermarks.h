// Changing the user's watermarks: what every menu of them does alike, whatever its store.
#pragma once

#include "foundation/bundle.h"
#include "shell/base/notices.h"
#include "watermark/watermark_data.h"

namespace kalmo {

/// A text watermark without a text, in the units that the user measures in.
void StartWatermark(_WatermarkData& record);

/// The first place of the name; -1 when it is not there, or null.
[[nodiscard]] CFIndex IndexOfWatermarkName(CFArrayRef names, CFStringRef name);
/// Wherever it stands in the list.
void RemoveWatermarkName(CFMutableArrayRef names, CFStringRef name);
/// A copy with `name` in the place of `before` (may be null), or at the end; a name stands once.
[[nodiscard]] Owned<CFMutableArrayRef> CopyNamesWith(CFArrayRef names, CFStringRef name,
                                                     CFStringRef before);

/// The entry first: a list never names a watermark that was not saved. True when both were.
[[nodiscard]] bool SaveWatermark(CFStringRef storeName, const _WatermarkData& record,
                                 CFArrayRef names);
/// A notice whose message takes the name and the path of the store: the file may be what is wrong.
void TellOfStore(CFBundleRef bundle, const NoticeKeys& keys, CFStringRef storeName,
                 CFStringRef name);

}  // namespace kalmo
