#include "shell/help_book.h"

#include "system/system.h"

namespace kalmo {

OSStatus RegisterMyHelpBook(const PDEShellContext& shell) {
    const auto url = Owned<CFURLRef>::Adopt(CFBundleCopyBundleURL(shell.bundle));
    UInt8 path[kMaximumPathSize];
    if (!url || !CFURLGetFileSystemRepresentation(url, true, path, kMaximumPathSize)) return fnfErr;
    return AHRegisterHelpBook(shell.bundle);
}

}  // namespace kalmo
