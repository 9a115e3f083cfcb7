#include "controls/panel_layout.h"

#include <algorithm>

#include "controls/nib_holders.h"

namespace kalmo {

OSStatus AppendViewFromWindowAndUnpack(ControlRef pane, WindowRef window, SInt32 section,
                                       SInt32* height) {
    ControlRef view = nullptr;
    if (const OSStatus status = GetControlByID(window, {'KPDE', section}, &view); status != noErr)
        return status;
    Rect bounds;
    GetControlBounds(view, &bounds);
    MoveSubviewsToPane(view, pane, *height);
    *height += bounds.bottom - bounds.top;
    return noErr;
}

OSStatus AppendSections(ControlRef pane, const PanelSource& source,
                        const std::vector<SInt32>& sections) {
    NibHolder nib;
    OSStatus status = OpenNib(source.bundle, source.file, &nib);
    if (status != noErr) return status;
    WindowHolder window;
    status = OpenNibWindow(nib, source.window, &window);
    if (status != noErr) return status;
    SInt32 height = 0;
    for (const SInt32 section : sections)
        AppendViewFromWindowAndUnpack(pane, window.get(), section, &height);
    return noErr;
}

SInt32 IDOfHit(EventRef event) {
    ControlID id{};
    const OSStatus status = GetControlID(GetEventControl(event), &id);
    return status == noErr && id.signature == 'KPDE' ? id.id : 0;
}

Rect CentredIn(const Rect& outer, const Rect& inner) {
    const SInt32 width = inner.right - inner.left, height = inner.bottom - inner.top;
    // A pane larger than its place keeps its upper left corner in sight.
    const SInt32 left = std::max(0, (outer.right - outer.left - width) / 2);
    const SInt32 top = std::max(0, (outer.bottom - outer.top - height) / 2);
    return {.top = top, .left = left, .bottom = top + height, .right = left + width};
}

void EmbedCentred(ControlRef inner, ControlRef outer) {
    Rect place, room;
    GetControlBounds(inner, &place);
    GetControlBounds(outer, &room);
    SetControlBounds(inner, CentredIn(room, place));
    EmbedControl(inner, outer);
}

}  // namespace kalmo
