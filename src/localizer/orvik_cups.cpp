// The localizer: puts the user's language into the texts of an open PPD.

// The PPD header of libcups is kept to the two files that read PPDs; this is all that is needed of
// it here.
struct ppd_file_s;
extern "C" int ppdLocalize(ppd_file_s* ppd);

extern "C" [[gnu::visibility("default")]] void InvokeLocalizedPPD(ppd_file_s* ppd) {
    if (ppd) ppdLocalize(ppd);
}
