// The job type's dictionary, there and back.
#include "paper_output/job_type.h"

#include <gtest/gtest.h>

#include "settings/dictionary.h"

namespace kalmo {
namespace {

Owned<CFTypeRef> Number(SInt64 value) {
    return Owned<CFTypeRef>::Adopt(
        CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt64Type, &value));
}

using Entries = std::vector<std::pair<CFStringRef, Owned<CFTypeRef>>>;

Owned<CFMutableDictionaryRef> Dictionary(const Entries& entries) {
    auto made =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    for (const auto& [key, value] : entries) CFDictionarySetValue(made, key, value.get());
    return made;
}

JobType Read(const Entries& entries) {
    JobType job;
    job.savedJobName = Owned<CFStringRef>::Retain(CFSTR("Document"));
    job.fromTicket(Dictionary(entries));
    return job;
}

Owned<CFDictionaryRef> Written(const JobType& job) {
    return Owned<CFDictionaryRef>::Adopt(job.asTicket());
}

TEST(JobType, NothingInTheTicketIsANormalJobUnderTheDocumentsName) {
    JobType job;
    job.savedJobName = Owned<CFStringRef>::Retain(CFSTR("Document"));
    job.fromTicket(nullptr);
    EXPECT_EQ(CFStringToUTF8(job.savedJobName), "Document");
    EXPECT_TRUE(CFEqual(Written(job),
                        Dictionary({{CFSTR("JobType"), Number(1)},
                                    {CFSTR("MediaType"), Number(1)},
                                    {CFSTR("UseJobName"), Owned<CFTypeRef>::Retain(kCFBooleanTrue)},
                                    {CFSTR("DelayedPrintTime"), Number(0)}})));
}

TEST(JobType, WhatIsOfTheWrongKindOrTooLargeIsAbsent) {
    const auto text = Owned<CFTypeRef>::Retain(CFSTR("7"));
    const JobType job = Read({{CFSTR("JobType"), text},
                              {CFSTR("MediaType"), Number(INT64_MAX)},
                              {CFSTR("UseJobName"), Number(0)},
                              {CFSTR("SavedJobName"), Number(1)},
                              {CFSTR("SavedJobLocation"), Number(2)},
                              {CFSTR("SecurePrintPassword"), Number(1234)},
                              {CFSTR("DelayedPrintTime"), text},
                              {CFSTR("SaveDisposition"), Number(INT64_C(1) << 32)}});
    EXPECT_EQ(job.jobType, kJobTypeNormal);
    EXPECT_EQ(job.mediaType, 1);
    EXPECT_TRUE(job.useJobName && job.useDefaultLocation && !job.hasSecurePassword);
    EXPECT_EQ(CFStringToUTF8(job.savedJobName), "Document");
    EXPECT_EQ(job.delayedPrintTime, 0);
    EXPECT_EQ(job.saveDisposition, kSaveOnly);
}

TEST(JobType, KeysStandInTheDictionaryOnlyWhileTheyMeanSomething) {
    const auto text = Owned<CFTypeRef>::Retain(CFSTR("x"));
    const SInt64 farAhead = INT64_C(1) << 40;
    JobType job = Read({{CFSTR("JobType"), Number(kJobTypeSaved)},
                        {CFSTR("UseJobName"), Owned<CFTypeRef>::Retain(kCFBooleanFalse)},
                        {CFSTR("SavedJobName"), text},
                        {CFSTR("SavedJobLocation"), text},
                        {CFSTR("SecurePrintPassword"), text},
                        {CFSTR("DelayedPrintTime"), Number(farAhead)},
                        {CFSTR("SaveDisposition"), Number(kSaveAndPrint)},
                        {CFSTR("Unknown"), text}});
    const auto holds = [&](CFStringRef key) { return CFDictionaryContainsKey(Written(job), key); };
    for (const CFStringRef key :
         {CFSTR("SavedJobName"), CFSTR("SavedJobLocation"), CFSTR("SecurePrintPassword")}) {
        EXPECT_TRUE(CFEqual(CFDictionaryGetValue(Written(job), key), text.get()));
    }
    EXPECT_TRUE(
        CFEqual(CFDictionaryGetValue(Written(job), CFSTR("SaveDisposition")), Number(2).get()));
    job.useJobName = job.useDefaultLocation = true;
    job.setPasscode(nullptr);
    job.jobType = kJobTypeNormal;
    for (const CFStringRef key : {CFSTR("SavedJobName"), CFSTR("SavedJobLocation"),
                                  CFSTR("SecurePrintPassword"), CFSTR("SaveDisposition")}) {
        EXPECT_FALSE(holds(key)) << CFStringToUTF8(key);
    }
    EXPECT_TRUE(holds(CFSTR("Unknown")));
    EXPECT_TRUE(CFEqual(CFDictionaryGetValue(Written(job), CFSTR("DelayedPrintTime")),
                        Number(farAhead).get()));
}

}  // namespace
}  // namespace kalmo
