// The time of day at which a job is released.
#pragma once

#include "foundation/bundle.h"

namespace kalmo {

/// `*time`: seconds since 1904 in local time, 0 when never set. After kModalOK it is the next
/// moment with the time of day chosen; kModalCancel or the failure of the interface file change
/// nothing.
SInt32 RunModalDelayedPrintSetup(CFBundleRef bundle, SInt64* time);
/// The moment, from `now` on, with the time of day of `chosen`: a time that has passed today is
/// 86,400 seconds later.
[[nodiscard]] SInt64 NextReleaseTime(SInt64 now, SInt64 chosen);

}  // namespace kalmo
