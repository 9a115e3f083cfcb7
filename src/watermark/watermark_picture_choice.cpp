#include "watermark/watermark_picture_choice.h"

#include <cstring>
#include <string>
#include <utility>

#include "shell/base/notices.h"
#include "shell/base/texts.h"
#include "toolbox/file_chooser.h"
#include "watermark/watermark_naming.h"

namespace kalmo {
namespace {

bool Fits(CFStringRef text, std::span<const char> field) {
    return CFStringToUTF8(text).size() < field.size();
}

/// Null when the user cancelled.
Owned<CFStringRef> AskForPath(CFBundleRef bundle, WindowRef owner, CFStringRef start) {
    const auto title = CopyText(bundle, CFSTR("WatermarkChooseTitle"));
    const auto kind = CopyText(bundle, CFSTR("WatermarkPictureFiles"));
    const auto url = Owned<CFURLRef>::Adopt(
        ChooseFile(owner, {.title = title,
                           .kind = kind,
                           .patterns = CFSTR("*.png *.jpg *.jpeg *.gif *.tif *.tiff *.bmp"),
                           .startPath = CFStringGetLength(start) > 0 ? start : nullptr}));
    return Owned<CFStringRef>::Adopt(url ? CFURLCopyFileSystemPath(url) : nullptr);
}

void Tell(CFBundleRef bundle, const NoticeKeys& keys, CFStringRef name) {
    const Owned<CFStringRef> shown = CopyShownName(name);
    const CFTypeRef arguments[] = {shown.get()};
    ShowNoticeWithKeys(bundle, keys, arguments, 1);
}

}  // namespace

void WatermarkPictureChoice::choose(WindowRef owner) {
    const auto path = AskForPath(bundle_, owner, CopyWatermarkText(record_->filePath));
    if (!path) return;
    File file = fileAt(path);
    // Cut, they would lead nowhere.
    if (Fits(file.name, record_->filename) && Fits(path, record_->filePath))
        trial_ = std::move(file);
    else
        Tell(bundle_,
             NoticeKeys{CFSTR("WatermarkLongNameHeader"), CFSTR("WatermarkLongNameMessage")},
             file.name);
}

void WatermarkPictureChoice::showIn(_WatermarkData& copy) const {
    if (trial_) SetWatermarkPicture(copy, trial_->name, trial_->path);
}

Owned<CFStringRef> WatermarkPictureChoice::wasDrawn(const _WatermarkData& drawn, OSStatus status) {
    // Meanwhile another record may be the one that counts.
    if (drawn.textString[0] || !drawn.filename[0]) return {};
    if (!trial_) {
        if (std::strcmp(drawn.filePath, record_->filePath) == 0) status_ = status;
        return {};
    }
    if (!CFEqual(CopyWatermarkText(drawn.filePath), trial_->path)) return {};
    const File tried = *std::exchange(trial_, std::nullopt);
    if (status != noErr) return tried.name;
    SetWatermarkPicture(*record_, tried.name, tried.path);
    status_ = noErr;
    return {};
}

bool WatermarkPictureChoice::isReadable() const {
    return record_->filename[0] && !trial_ && status_ == noErr;
}

Owned<CFStringRef> WatermarkPictureChoice::message() const {
    if (trial_) return CopySentence(CopyText(bundle_, CFSTR("WatermarkReading")), trial_->name);
    if (!record_->filename[0] || status_.value_or(noErr) == noErr) return CopyWatermarkText("");
    return CopySentence(CopyText(bundle_, CFSTR("WatermarkPictureLost")),
                        CopyWatermarkText(record_->filename));
}

WatermarkPictureChoice::File WatermarkPictureChoice::fileAt(CFStringRef path) {
    const std::string utf8 = CFStringToUTF8(path);
    return {Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(utf8.substr(utf8.rfind('/') + 1))),
            Owned<CFStringRef>::Retain(path)};
}

void SetWatermarkPicture(_WatermarkData& record, CFStringRef name, CFStringRef path) {
    SetWatermarkText(record.filename, name);
    SetWatermarkText(record.filePath, path);
}

void TellUnreadablePicture(CFBundleRef bundle, CFStringRef name) {
    Tell(bundle,
         NoticeKeys{CFSTR("WatermarkUnreadableHeader"), CFSTR("WatermarkUnreadableMessage")}, name);
}

}  // namespace kalmo
