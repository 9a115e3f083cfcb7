// What kind of job this is, and what the held, delayed, stored and secure ones need to know.
//
// The ticket's dictionary is kept as it came: keys that nobody here knows stay in it.
#pragma once

#include "foundation/collections.h"
#include "foundation/number.h"

namespace kalmo {

inline constexpr SInt32 kJobTypeNormal = 1, kJobTypeHold = 2, kJobTypeSaved = 3, kJobTypeFax = 5,
                        kJobTypeSecurePrint = 6, kJobTypeDelayed = 7, kJobTypeSampleSet = 8,
                        kJobTypeBackgroundForm = 9;
inline constexpr SInt32 kPasscodeMinimumLength = 4, kPasscodeMaximumLength = 10;
/// Store the job; store it and print it as well.
inline constexpr SInt32 kSaveOnly = 1, kSaveAndPrint = 2;
/// Formats of a saved job.
inline constexpr SInt32 kFirstJobFormat = 1, kLastJobFormat = 5;

/// Ticket form: "JobType", "MediaType", "UseJobName", "SavedJobName", "SavedJobLocation",
/// "SecurePrintPassword", "DelayedPrintTime", "SaveDisposition". Texts may be null.
struct JobType {
    Owned<CFMutableDictionaryRef> dictionary;  // as it came; asTicket writes over a copy of it
    SInt32 jobType = kJobTypeNormal;
    SInt32 mediaType = 1;  // the format of a saved job
    bool useJobName = true;
    Owned<CFStringRef> savedJobName;
    bool useDefaultLocation = true;
    Owned<CFStringRef> savedJobLocation;
    bool hasSecurePassword = false;
    Owned<CFStringRef> securePassword;
    SInt64 delayedPrintTime = 0;  // seconds since 1904 in local time; 0: never set
    SInt32 saveDisposition = kSaveOnly;

    /// A null dictionary: a normal job under the document's name. A saved job's name that the
    /// dictionary does not hold stays as it was.
    void fromTicket(CFDictionaryRef ticket);
    /// The caller releases it.
    [[nodiscard]] CFMutableDictionaryRef asTicket() const;
    /// Holds the passcode, or none when it is null.
    void setPasscode(CFStringRef passcode);
};

/// Whether a job of that type has something to set up.
[[nodiscard]] bool HasJobSetup(SInt32 jobType);

}  // namespace kalmo
