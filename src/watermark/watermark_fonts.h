// Two popups that choose a font: its family, and the face of that family.
#pragma once

#include "foundation/collections.h"
#include "toolbox/controls.h"

namespace kalmo {

/// Lent popups, which live longer.
class FontMenus final {
public:
    FontMenus() = default;
    /// Lists the installed families.
    FontMenus(ControlRef families, ControlRef styles);

    /// Chooses the face that is really used for the font of that PostScript name.
    void show(CFStringRef postScriptName);
    /// Lists the faces of the family that the user chose. The one of the same style stays chosen;
    /// in a family without it, that is the first.
    void familyWasChosen();
    /// The PostScript name of the chosen face; null when there is none. Lent until the next call of
    /// another function.
    [[nodiscard]] CFStringRef chosen() const;

private:
    void listFaces(CFStringRef family);

    ControlRef families_ = nullptr, styles_ = nullptr;
    Owned<CFArrayRef> faces_;  // in the order of the popup
};

}  // namespace kalmo
