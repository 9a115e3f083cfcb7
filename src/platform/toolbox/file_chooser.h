// The desktop's own window for choosing a file.
#pragma once

#include "foundation/url.h"
#include "toolbox/windows.h"

/// Texts are lent.
struct FileChooserSetup {
    CFStringRef title = nullptr;
    /// What the files are called, and their endings apart by blanks ("*.png *.jpg"), in any case of
    /// letters.
    CFStringRef kind = nullptr, patterns = nullptr;
    /// A file to begin at, by path; null: the user's pictures.
    CFStringRef startPath = nullptr;
};

#pragma GCC visibility push(default)

/// Waits for the user, over `owner`. Null when the user cancelled, and at once where no modal loop
/// may run. The caller releases it.
[[nodiscard]] CFURLRef ChooseFile(WindowRef owner, const FileChooserSetup& setup);

#pragma GCC visibility pop
