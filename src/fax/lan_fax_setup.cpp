#include "fax/lan_fax_setup.h"

#include "shell/base/notices.h"
#include "toolbox/windows.h"

namespace kalmo {

SInt32 RunModalLANFaxSetup(CFBundleRef bundle, CFMutableDictionaryRef, FaxRecipientList*) {
    ShowNoticeWithKeys(bundle,
                       {.header = CFSTR("LANFaxSetupMissingHeader"),
                        .message = CFSTR("LANFaxSetupMissingMessage")},
                       nullptr, 0);
    return kModalCancel;
}

}  // namespace kalmo
