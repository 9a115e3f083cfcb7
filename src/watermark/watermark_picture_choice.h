// The picture file of a watermark: asked for, tried, and taken only when it could be read.
#pragma once

#include <optional>

#include "foundation/bundle.h"
#include "toolbox/windows.h"
#include "watermark/watermark_data.h"

namespace kalmo {

/// Changes the picture of the record, which lives longer.
class WatermarkPictureChoice final {
public:
    WatermarkPictureChoice(CFBundleRef bundle, _WatermarkData* record)
        : bundle_(bundle), record_(record) {}

    /// Waits for the user, over `owner`. The file chosen is on trial until it was drawn; one whose
    /// name or path is longer than a record holds is refused with a notice.
    void choose(WindowRef owner);
    /// Whatever is on trial is not wanted any more.
    void dropTrial() { trial_.reset(); }

    /// Puts the file on trial, if there is one, into a copy of the record.
    void showIn(_WatermarkData& copy) const;
    /// The answer for a record that was drawn. A file on trial that could be read is the record's
    /// now; its name when it could not, to be told to the user.
    [[nodiscard]] Owned<CFStringRef> wasDrawn(const _WatermarkData& drawn, OSStatus status);

    /// Whether the record's picture could be read, with none on trial.
    [[nodiscard]] bool isReadable() const;
    /// What there is to say about it; empty when all is well.
    [[nodiscard]] Owned<CFStringRef> message() const;

private:
    struct File {
        Owned<CFStringRef> name, path;
    };

    [[nodiscard]] static File fileAt(CFStringRef path);

    CFBundleRef bundle_;  // lent
    _WatermarkData* record_;
    std::optional<File> trial_;
    std::optional<OSStatus> status_;  // of the record's picture, once it was drawn
};

/// Both empty: no picture.
void SetWatermarkPicture(_WatermarkData& record, CFStringRef name, CFStringRef path);
/// Says that the picture of that file name cannot be read, and which can.
void TellUnreadablePicture(CFBundleRef bundle, CFStringRef name);

}  // namespace kalmo
