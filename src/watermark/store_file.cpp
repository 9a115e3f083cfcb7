#include "watermark/store_file.h"

#include <cerrno>
#include <cstdio>

#include "settings/dictionary.h"
#include "settings/user_preferences.h"

namespace kalmo {
namespace {

std::mutex& StoreLock() {
    static std::mutex lock;
    return lock;
}

/// A file of no bytes, as a power cut can leave it, holds nothing that would have to be kept.
CFPropertyListRef CopyList(CFURLRef url, SInt32* error) {
    Owned<CFDataRef> bytes;
    if (!CFURLCreateDataAndPropertiesFromResource(kCFAllocatorDefault, url, bytes.adopt(), error))
        return nullptr;
    Owned<CFStringRef> reason;
    const CFPropertyListRef list = CFPropertyListCreateFromXMLData(
        kCFAllocatorDefault, bytes, kCFPropertyListMutableContainersAndLeaves, reason.adopt());
    if (list) return list;
    std::fprintf(stderr, "CopyXMLData()::CFPropertyListCreateFromXMLData() error: %s\n",
                 CFStringToUTF8(reason).c_str());
    *error = CFDataGetLength(bytes) == 0 ? ENOENT : EBADMSG;
    return nullptr;
}

}  // namespace

CFPropertyListRef CopyXMLData(CFStringRef name, SInt32* error) {
    SInt32 ignored = 0;
    const auto url = Owned<CFURLRef>::Adopt(CopyPreferenceFileURL(name));
    return CopyList(url, error ? error : &ignored);
}

StoreFile::StoreFile(CFStringRef name)
    : lock_(StoreLock()), url_(Owned<CFURLRef>::Adopt(CopyPreferenceFileURL(name))) {
    const auto list = Owned<CFPropertyListRef>::Adopt(CopyList(url_, &refusal_));
    contents_ = Owned<CFMutableDictionaryRef>::Retain(
        ValueOfType<CFMutableDictionaryRef>(list, CFDictionaryGetTypeID()));
    if (list && !contents_) refusal_ = EBADMSG;
    if (refusal_ == ENOENT)
        contents_ =
            Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
}

SInt32 StoreFile::write(Durability durability) const {
    if (!contents_) return refusal_;
    SInt32 error = 0;
    WritePropertiesToXMLFile(url_, contents_, &error, durability);
    return error;
}

}  // namespace kalmo
