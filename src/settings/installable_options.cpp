#include "settings/installable_options.h"

#include "foundation/collections.h"
#include "shell/base/texts.h"

namespace kalmo {

const _InstalledFeatureMap InstalledFeatures[] = {
    {CFSTR("SingleStapleKey"), CFSTR("Option4"), CFSTR("True"), CFSTR("1 Staple"), 0},
    {CFSTR("JobStorage"), CFSTR("Option8"), CFSTR("True"), nullptr, 0},
    {CFSTR("FaxKey"), CFSTR("Option5"), CFSTR("True"), nullptr, 0},
    {},
};

namespace {

/// Option keyword to marked choice keyword; null while nothing is loaded.
Owned<CFMutableDictionaryRef> installableOptionsDict;
/// The table in use; null while nothing is loaded, and the system's own is then asked.
const _InstalledFeatureMap* featureMap = nullptr;

bool Holds(const _InstalledFeatureMap& row) {
    if (!row.option) return true;
    CFStringRef choice = nullptr;
    return row.choice && getInstallableOptionValue(row.option, &choice) &&
           CFEqual(choice, row.choice);
}

/// The feature's first row that holds and has a label where one is wanted; null without.
const _InstalledFeatureMap* FirstRowThatHolds(CFStringRef feature, bool withLabel = false) {
    if (!feature) return nullptr;
    const _InstalledFeatureMap* row = featureMap ? featureMap : InstalledFeatures;
    for (; row->feature; ++row) {
        const bool wanted = CFEqual(row->feature, feature) && (row->labelKey || !withLabel);
        if (wanted && Holds(*row)) return row;
    }
    return nullptr;
}

}  // namespace

bool LoadInstallableOptions(PPDRef ppd, const _InstalledFeatureMap* table) {
    if (!ppd || installableOptionsDict) return false;
    featureMap = table;
    installableOptionsDict =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    // Then each option's marked choice is its default in the PPD.
    PPDMarkDefaults(ppd);
    PPDForEachMarkedChoiceOfGroup(
        ppd, "InstallableOptions", [](const char* option, const char* choice) {
            const auto keyword = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(option));
            const auto marked = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(choice));
            CFDictionarySetValue(installableOptionsDict, keyword, marked);
        });
    return CFDictionaryGetCount(installableOptionsDict) > 0;
}

void UnloadInstallableOptions() {
    installableOptionsDict = {};
    featureMap = nullptr;
}

bool getInstallableOptionValue(CFStringRef option, CFStringRef* choice) {
    const CFTypeRef recorded = CFDictionaryGetValue(installableOptionsDict, option);
    if (!recorded) return false;
    if (choice) *choice = static_cast<CFStringRef>(recorded);
    return true;
}

bool getInstalledFeature(CFStringRef feature) { return FirstRowThatHolds(feature) != nullptr; }

bool getInstallableOptionTicketValue(CFStringRef feature, SInt32* value) {
    const _InstalledFeatureMap* row = FirstRowThatHolds(feature);
    if (row && value) *value = row->ticketValue;
    return row != nullptr;
}

CFStringRef CopyLocalizedStringForInstalledFeatureFromPlugin(CFStringRef feature,
                                                             CFBundleRef bundle) {
    const _InstalledFeatureMap* row = FirstRowThatHolds(feature, true);
    return row ? CopyText(bundle, row->labelKey).detach() : nullptr;
}

}  // namespace kalmo
