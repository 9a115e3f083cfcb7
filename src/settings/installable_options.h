// Which optional devices the printer has, as recorded in its PPD.
#pragma once

#include "foundation/bundle.h"
#include "settings/ppd_access.h"

namespace kalmo {

struct _InstalledFeatureMap {
    // Null ends the table; several rows may carry one name, any one will do.
    CFStringRef feature = nullptr;
    CFStringRef option = nullptr;    // keyword in "InstallableOptions"; null: always installed
    CFStringRef choice = nullptr;    // what means installed
    CFStringRef labelKey = nullptr;  // localization key, or null
    SInt32 ticketValue = 0;
};
extern const _InstalledFeatureMap InstalledFeatures[];

/// True when at least one option was recorded. While loaded it does nothing and answers false.
bool LoadInstallableOptions(PPDRef ppd, const _InstalledFeatureMap* table);
void UnloadInstallableOptions();
/// `*choice` is lent.
bool getInstallableOptionValue(CFStringRef option, CFStringRef* choice);
[[nodiscard]] bool getInstalledFeature(CFStringRef feature);
/// The value of the feature's first row that holds; `*value` untouched otherwise.
bool getInstallableOptionTicketValue(CFStringRef feature, SInt32* value);
/// Text of the feature's first row that holds and has a label; null without one. The caller
/// releases it.
[[nodiscard]] CFStringRef CopyLocalizedStringForInstalledFeatureFromPlugin(CFStringRef feature,
                                                                           CFBundleRef bundle);

}  // namespace kalmo
