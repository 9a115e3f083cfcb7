// One change of a store file, from reading it to writing it back.
#pragma once

#include <mutex>

#include "shell/base/property_list_file.h"

namespace kalmo {

/// A file in Preferences/Kalmo, read. While it lives, no other thread changes a store file, so that
/// it lives for one call. Between processes the last writer wins.
class StoreFile final {
public:
    explicit StoreFile(CFStringRef name);

    [[nodiscard]] bool exists() const { return CFURLResourceExists(url_); }
    /// What it holds, to be changed; empty for a missing or an empty file. Null when something
    /// stands there that is no store file: that stays as it is. Lent.
    [[nodiscard]] CFMutableDictionaryRef contents() const { return contents_; }
    /// Replaces the file by the contents. A platform error, or 0.
    [[nodiscard]] SInt32 write(Durability durability = Durability::synced) const;

private:
    std::scoped_lock<std::mutex> lock_;
    Owned<CFURLRef> url_;
    Owned<CFMutableDictionaryRef> contents_;
    SInt32 refusal_ = 0;
};

/// What the file holds, with containers and leaves that may be changed. Null when it is missing or
/// cannot be read (then with a platform error in `*error`, which may be null); one that is no
/// property list is told on standard error. The caller releases it.
[[nodiscard]] CFPropertyListRef CopyXMLData(CFStringRef name, SInt32* error = nullptr);

}  // namespace kalmo
