// The page that a watermark is laid on.
#pragma once

#include "graphics/geometry.h"
#include "printing/session.h"
#include "settings/ppd_access.h"

namespace kalmo {

/// The job's paper in pt, turned as its pages are: the size of one's own in the job's stock, else
/// the paper chosen, else the printer's default, else US letter. `ppd` may be null.
[[nodiscard]] CGSize JobPage(PMPrintSession session, PPDRef ppd);

}  // namespace kalmo
