// Which optional devices the printer has, as recorded in its PPD.
#pragma once

#include "foundation/bundle.h"
#include "settings/ppd_access.h"

namespace kalmo {

struct _InstalledFeatureMap {
    CFStringRef feature;   // null ends the table; several rows may carry one name, any one will do
    CFStringRef option;    // keyword in the group "InstallableOptions"; null: always installed
    CFStringRef choice;    // what means installed
    CFStringRef labelKey;  // localization key, or null
    SInt32 ticketValue;
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
