// What a fax needs beside its recipients: a dictionary of the job's ticket.
//
// All keys may be missing; the value that stands for a missing one is said with each.
#pragma once

#include "settings/dictionary.h"

namespace kalmo {

#define kFaxPrintConfirmationSheetProperty CFSTR("ConfirmationSheet")  // boolean, true
#define kFaxSendSpeedProperty CFSTR("SendSpeed")                       // FaxSendSpeedMap, 3
#define kFaxResolutionProperty CFSTR("Resolution")                     // FaxResolutionMap, 2
/// 64-bit, seconds since the start of 1904, local time; missing: now.
#define kFaxSendTimeProperty CFSTR("SendTime")
#define kFaxDialingPrefixProperty CFSTR("DialingPrefix")               // missing: none
#define kFaxCreditCardProperty CFSTR("CreditCard")                     // missing: none
#define kFaxPrintCoverSheetProperty CFSTR("CoverSheet")                // boolean, false
#define kFaxCoverSheetNotesProperty CFSTR("CoverSheetNotes")           // string
#define kFaxCoverLocalizedNotesLabel CFSTR("LocalizedNotesLabel")      // string
#define kFaxPromptDuplicateProperty CFSTR("PromptDuplicate")           // boolean, true
#define kFaxPromptRemoveProperty CFSTR("PromptRemove")                 // boolean, true
#define kFaxWaterMarkSelectedIndex CFSTR("FAXWaterMarkSelectedIndex")  // number, 1
#define kFaxNewJobResolutionProperty CFSTR("NewJobResolution")         // reserved

// What the cover says. The labels are in the sender's language: the printer has no tables.
#define kFaxShowSenderProperty CFSTR("ShowSender")  // boolean
#define kFaxSenderNameProperty CFSTR("SenderName")
#define kFaxSenderOrganizationProperty CFSTR("SenderOrganization")
#define kFaxSenderEmailAddressProperty CFSTR("SenderEmailAddress")
#define kFaxSenderFaxNumberProperty CFSTR("SenderFaxNumber")
#define kFaxSenderPhoneNumberProperty CFSTR("SenderPhoneNumber")
#define kFaxLocalizedFromLabel CFSTR("LocalizedFromLabel")
#define kFaxLocalizedPhoneLabel CFSTR("LocalizedPhoneLabel")
#define kFaxLocalizedFaxLabel CFSTR("LocalizedFaxLabel")
#define kFaxShowRecipientsProperty CFSTR("ShowRecipients")  // number, kShowAllRecipients
#define kFaxLocalizedToLabel CFSTR("LocalizedToLabel")
#define kFaxCustomRecipientTextProperty CFSTR("CustomRecipientText")  // of kShowCustomText
#define kFaxShowWatermarkProperty CFSTR("ShowWatermark")              // boolean, false
#define kFaxWatermarkNameProperty CFSTR("WatermarkName")              // in kFaxImageStore
#define kFaxCoverSizeProperty CFSTR("Size")                           // kCoverSizeLetter

/// The texts that the cover and the alerts of a fax say.
#define kFaxTextTable CFSTR("LANFax")
#define kFaxInterfaceFile CFSTR("LANFAX")

/// What "ShowRecipients" holds. The menu shows the first two the other way round.
inline constexpr SInt32 kHideRecipients = 1, kShowAllRecipients = 2, kShowCustomText = 3;
/// Of the cover image menu: the first item is no image.
inline constexpr SInt32 kNoCoverImageItem = 1;
/// What "Size" holds for letter paper; any other value is A4.
inline constexpr SInt32 kCoverSizeLetter = 1;

/// The number under the key, whatever its kind; `missing` without one.
[[nodiscard]] SInt32 NumberOr(CFDictionaryRef options, CFStringRef key, SInt32 missing);
/// The boolean under the key; `missing` without one.
[[nodiscard]] bool BooleanOr(CFDictionaryRef options, CFStringRef key, bool missing);
void SetBoolean(CFMutableDictionaryRef options, CFStringRef key, bool value);
/// Stores the text, or removes the key when there is none.
void SetOrRemove(CFMutableDictionaryRef options, CFStringRef key, CFStringRef text);
/// In the place of all that stands in `options`.
void ReplaceOptions(CFMutableDictionaryRef options, CFDictionaryRef contents);

}  // namespace kalmo
