// Building a panel's controls: sections of an interface file stacked in the panel's pane.
#pragma once

#include <vector>

#include "foundation/bundle.h"
#include "toolbox/controls.h"
#include "toolbox/events.h"

namespace kalmo {

/// Finds section ('KPDE', `section`) in `window`, moves its subviews into `pane`, `*height` pixels
/// down, and adds the section's height to `*height`. The status of the look-up; a missing section
/// changes nothing.
OSStatus AppendViewFromWindowAndUnpack(ControlRef pane, WindowRef window, SInt32 section,
                                       SInt32* height);

/// Lent names of an interface file and of the window in it that holds a panel's sections.
struct PanelSource {
    CFBundleRef bundle;
    CFStringRef file, window;
};
/// Unpacks these sections into `pane`, from top to bottom. The failure of the interface file.
OSStatus AppendSections(ControlRef pane, const PanelSource& source,
                        const std::vector<SInt32>& sections);

/// The id of the event's control among those of signature 'KPDE'; 0 for any other.
[[nodiscard]] SInt32 IDOfHit(EventRef event);

/// Where `inner` stands when centred in `outer`, never left of or above its edge.
[[nodiscard]] Rect CentredIn(const Rect& outer, const Rect& inner);
/// Embeds `inner` there, at the size it has.
void EmbedCentred(ControlRef inner, ControlRef outer);

}  // namespace kalmo
