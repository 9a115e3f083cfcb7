// File URLs, files, and the user's Preferences folder.
#pragma once

#include "foundation/collections.h"
#include "foundation/string.h"

/// A file-system path has at most so many bytes, its end included.
inline constexpr CFIndex kMaximumPathSize = 1024;

#pragma GCC visibility push(default)

[[nodiscard]] CFTypeID CFURLGetTypeID();
/// A file URL of a POSIX path (relative ones are taken from the working folder).
[[nodiscard]] CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef, CFStringRef path,
                                                     Boolean isDirectory);
[[nodiscard]] CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef, const UInt8* path,
                                                               CFIndex length, Boolean isDirectory);
/// Null unless `text` is a URL. `base` may be null.
[[nodiscard]] CFURLRef CFURLCreateWithString(CFAllocatorRef, CFStringRef text, CFURLRef base);
[[nodiscard]] CFURLRef CFURLCreateCopyAppendingPathComponent(CFAllocatorRef, CFURLRef url,
                                                             CFStringRef component,
                                                             Boolean isDirectory);
/// Percent-encoded, folders with a final slash. Borrowed.
[[nodiscard]] CFStringRef CFURLGetString(CFURLRef url);
/// The POSIX path; null when the URL is no file URL. The caller releases it.
[[nodiscard]] CFStringRef CFURLCopyFileSystemPath(CFURLRef url);
/// False, buffer untouched, when the URL is no file URL or its path with its end exceeds `size`.
Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean resolveAgainstBase, UInt8* buffer,
                                         CFIndex size);

/// Reads the whole file (at most kPropertyListMaximumBytes). False with an errno number in
/// `errorCode` (may be null). The caller releases `*data`.
Boolean CFURLCreateDataAndPropertiesFromResource(CFAllocatorRef, CFURLRef url, CFDataRef* data,
                                                 SInt32* errorCode);
/// Writes under a temporary name beside it, mode 0600, synced, then renamed over the file.
Boolean CFURLWriteDataAndPropertiesToResource(CFURLRef url, CFDataRef data, SInt32* errorCode);
/// The same without waiting for the disk: readers see one file or the other, but a power cut can
/// lose the new one.
Boolean CFURLWriteDataUnsynced(CFURLRef url, CFDataRef data, SInt32* errorCode);
[[nodiscard]] Boolean CFURLResourceExists(CFURLRef url);
/// Makes the folder and missing parents, mode 0700. True when it exists afterwards.
Boolean CFURLMakeFolder(CFURLRef url);

/// $XDG_CONFIG_HOME/kalmo-print (~/.config when unset or relative), made with mode 0700 when
/// missing. Null when it cannot be found or made. The caller releases it.
[[nodiscard]] CFURLRef CopyUserPreferencesFolder();

#pragma GCC visibility pop
