// Special pages in words.
#pragma once

#include "settings/ppd_access.h"
#include "special_pages/special_page.h"

namespace kalmo {

// Texts of the bundle; the caller releases them.

/// The list's third column: paper name, sides or quantity, size, color, type, "; " between.
[[nodiscard]] CFStringRef CopySpecialPageSummary(const SpecialPage& page, CFBundleRef bundle);
/// For the dialogs: quantity or sides, then the stock, ";  " between.
[[nodiscard]] CFStringRef CreateInsertAttributesDescription(CFBundleRef bundle,
                                                            const Insert& insert);
[[nodiscard]] CFStringRef CreateExceptionAttributesDescription(CFBundleRef bundle,
                                                               const ExceptionPage& exception);

}  // namespace kalmo
