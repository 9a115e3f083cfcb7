// How pages are laid out, folded and stapled into a booklet.
#pragma once

#include "foundation/bundle.h"
#include "paper_output/paper_output_record.h"
#include "watermark/booklet_service.h"

namespace kalmo {

/// Edits the choice. kModalCancel or the failure of the interface file change nothing.
SInt32 RunModalBookletDialog(CFBundleRef bundle, PPDRef ppd, BookletChoice* choice);

/// A booklet's picture, and the words for it. A fold that makes no booklet is none.
[[nodiscard]] BookletState BookletStateOf(SInt32 fold, bool layout);

}  // namespace kalmo
