// The menu of cover images: none, the user's images, the cover's paper, and what can be done with
// an image.
#pragma once

#include "foundation/bundle.h"
#include "foundation/collections.h"
#include "toolbox/menus.h"

namespace kalmo {

/// Commands of the menu, beside those that watermark_menu.h names.
inline constexpr UInt32 kNewCoverImageCommand = 'LFin', kEditCoverImageCommand = 'LFie',
                        kDeleteCoverImageCommand = 'LFid', kCoverLetterCommand = 'FwmL',
                        kCoverA4Command = 'FwmA';

/// Empties the menu and fills it. Each name carries its index in the list.
void PopulateCoverSheetImageMenuFromMapAndHistory(MenuRef menu, CFBundleRef bundle,
                                                  CFArrayRef names);
/// The chosen item and the chosen paper; an image can be edited and deleted only when one is
/// chosen.
void MarkCoverSheetImageMenu(MenuRef menu, SInt32 item, SInt32 size);

}  // namespace kalmo
