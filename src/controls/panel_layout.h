// Building a panel's controls: sections of an interface file stacked in the panel's pane.
#pragma once

#include "toolbox/controls.h"

namespace kalmo {

/// Finds section ('KPDE', `section`) in `window`, moves its subviews into `pane`, `*height` pixels
/// down, and adds the section's height to `*height`. The status of the look-up; a missing section
/// changes nothing.
OSStatus AppendViewFromWindowAndUnpack(ControlRef pane, WindowRef window, SInt32 section,
                                       SInt32* height);

/// Where `inner` stands when centred in `outer`, never left of or above its edge.
[[nodiscard]] Rect CentredIn(const Rect& outer, const Rect& inner);

}  // namespace kalmo
