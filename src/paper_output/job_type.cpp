#include "paper_output/job_type.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "settings/dictionary.h"
#include "settings/ticket.h"

namespace kalmo {
namespace {

// 4 is a stored job of an older kind: no menu offers it, tickets may hold it.
constexpr SInt32 kTypesWithSetup[] = {
    kJobTypeSaved, 4, kJobTypeFax, kJobTypeSecurePrint, kJobTypeDelayed, kJobTypeBackgroundForm};

SInt64 TimeOrNever(CFDictionaryRef ticket, CFStringRef key) {
    SInt64 time = 0;
    return CFDictionaryGetNumber(ticket, key, kCFNumberSInt64Type, &time) ? time : 0;
}

bool BooleanOr(CFDictionaryRef ticket, CFStringRef key, bool missing) {
    const CFBooleanRef value = BooleanInDictionary(ticket, key);
    return value ? CFBooleanGetValue(value) : missing;
}

/// A copy, since the ticket's may be changed later; null when there is no string.
Owned<CFStringRef> TextOrNone(CFDictionaryRef ticket, CFStringRef key) {
    const CFStringRef text = StringInDictionary(ticket, key);
    return Owned<CFStringRef>::Adopt(text ? CFStringCreateCopy(kCFAllocatorDefault, text)
                                          : nullptr);
}

void WriteNumber(CFMutableDictionaryRef ticket, CFStringRef key, SInt32 value) {
    CFDictionarySetNumber(ticket, key, kCFNumberSInt32Type, &value);
}

void WriteTextOrRemove(CFMutableDictionaryRef ticket, CFStringRef key, CFStringRef text) {
    if (text)
        CFDictionarySetValue(ticket, key, text);
    else
        CFDictionaryRemoveValue(ticket, key);
}

/// What a job starts with when the ticket says nothing.
CFMutableDictionaryRef CreateFirstDictionary() {
    auto* const ticket = CFDictionaryCreateMutable(kCFAllocatorDefault, 0);
    WriteTicketValue(ticket, CFSTR("MediaType"), kFirstJobFormat);
    WriteNumber(ticket, CFSTR("JobType"), kJobTypeNormal);
    CFDictionarySetValue(ticket, CFSTR("UseJobName"), kCFBooleanTrue);
    CFDictionarySetValue(ticket, CFSTR("SavedJobName"), CFSTR(""));
    return ticket;
}

void WriteSavedJob(const JobType& job, CFMutableDictionaryRef ticket) {
    if (job.useJobName) {
        CFDictionaryRemoveValue(ticket, CFSTR("SavedJobName"));
    } else if (job.savedJobName) {
        CFDictionarySetValue(ticket, CFSTR("SavedJobName"), job.savedJobName);
    }
    WriteTextOrRemove(ticket, CFSTR("SavedJobLocation"),
                      job.useDefaultLocation ? nullptr : job.savedJobLocation.get());
    if (job.jobType == kJobTypeSaved)
        WriteTicketValue(ticket, CFSTR("SaveDisposition"), job.saveDisposition);
    else
        CFDictionaryRemoveValue(ticket, CFSTR("SaveDisposition"));
}

}  // namespace

void JobType::fromTicket(CFDictionaryRef ticket) {
    // The name in a dictionary made here is a placeholder, not a name that anybody gave.
    auto name = TextOrNone(ticket, CFSTR("SavedJobName"));
    dictionary = Owned<CFMutableDictionaryRef>::Adopt(
        ticket ? CFDictionaryCreateMutableCopy(kCFAllocatorDefault, 0, ticket)
               : CreateFirstDictionary());
    const auto number = [this](CFStringRef key, SInt32 missing) {
        return SInt32InDictionary(dictionary, key).value_or(missing);
    };
    jobType = number(CFSTR("JobType"), kJobTypeNormal);
    mediaType = number(CFSTR("MediaType"), kFirstJobFormat);
    // A name that is no text counts as none, and then the document's is used.
    const bool hasBadName = !name && CFDictionaryContainsKey(dictionary, CFSTR("SavedJobName"));
    useJobName = hasBadName || BooleanOr(dictionary, CFSTR("UseJobName"), true);
    if (name) savedJobName = std::move(name);
    savedJobLocation = TextOrNone(dictionary, CFSTR("SavedJobLocation"));
    useDefaultLocation = !savedJobLocation;
    securePassword = TextOrNone(dictionary, CFSTR("SecurePrintPassword"));
    hasSecurePassword = securePassword.get() != nullptr;
    delayedPrintTime = TimeOrNever(dictionary, CFSTR("DelayedPrintTime"));
    saveDisposition = number(CFSTR("SaveDisposition"), kSaveOnly);
}

CFMutableDictionaryRef JobType::asTicket() const {
    auto* const ticket = dictionary
                             ? CFDictionaryCreateMutableCopy(kCFAllocatorDefault, 0, dictionary)
                             : CreateFirstDictionary();
    WriteNumber(ticket, CFSTR("JobType"), jobType);
    WriteTicketValue(ticket, CFSTR("MediaType"), mediaType);
    CFDictionarySetValue(ticket, CFSTR("UseJobName"),
                         useJobName ? kCFBooleanTrue : kCFBooleanFalse);
    WriteSavedJob(*this, ticket);
    WriteTextOrRemove(ticket, CFSTR("SecurePrintPassword"),
                      hasSecurePassword ? securePassword.get() : nullptr);
    CFDictionarySetNumber(ticket, CFSTR("DelayedPrintTime"), kCFNumberSInt64Type,
                          &delayedPrintTime);
    return ticket;
}

void JobType::setPasscode(CFStringRef passcode) {
    securePassword = Owned<CFStringRef>::Adopt(
        passcode ? CFStringCreateCopy(kCFAllocatorDefault, passcode) : nullptr);
    hasSecurePassword = passcode != nullptr;
}

bool HasJobSetup(SInt32 jobType) {
    return std::ranges::find(kTypesWithSetup, jobType) != std::end(kTypesWithSetup);
}

}  // namespace kalmo
