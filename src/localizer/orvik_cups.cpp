// The localizer: puts the user's language into the texts of an open PPD.
#include "printing/ppd_file.h"

extern "C" [[gnu::visibility("default")]] void InvokeLocalizedPPD(ppd_file_s* ppd) noexcept {
    try {
        LocalizePPDFile(ppd);
    } catch (...) {  // the texts stay as they are
    }
}
