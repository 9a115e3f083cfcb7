#include "shell/base/help.h"

#include "kalmo/statuses.h"
#include "shell/base/panel_interface.h"
#include "system/system.h"

extern "C" OSStatus DisplayHelp(CFBundleRef bundle, CFStringRef page, CFStringRef anchor) {
    const CFTypeRef name =
        bundle ? CFBundleGetValueForInfoDictionaryKey(bundle, CFSTR("CFBundleHelpBookName"))
               : nullptr;
    if (!name || CFGetTypeID(name) != CFStringGetTypeID()) return paramErr;
    const auto book = static_cast<CFStringRef>(name);
    return kalmo::WithoutExceptions(paramErr, [&] {
        return page || !anchor ? AHGotoPage(book, page, anchor) : AHLookupAnchor(book, anchor);
    });
}
