// A stand-in for the plug-in that localizes a PPD's texts in place.
#include <cups/ppd.h>

#include <cstdio>

extern "C" [[gnu::visibility("default")]] void InvokeLocalizedPPD(ppd_file_t* ppd) {
    if (ppd->num_groups > 0)
        std::snprintf(ppd->groups->options->choices->text, PPD_MAX_TEXT, "Localized");
}
