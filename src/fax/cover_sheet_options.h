// What the user chooses for a cover sheet, and how it stands in the options of a fax.
#pragma once

#include <array>

#include "fax/fax_options.h"
#include "foundation/bundle.h"

namespace kalmo {

/// Values of CoverSheetSenderMap, and of CoverSheetRecipientMap: of the latter, the options hold
/// the first two the other way round.
inline constexpr SInt32 kShowSenderItem = 1, kHideSenderItem = 2;
inline constexpr SInt32 kAllRecipientsItem = 1, kNoRecipientsItem = 2, kCustomTextItem = 3;

/// What the size commands choose. The menu's row for A4 has another value; each but 1 is A4.
inline constexpr SInt32 kCoverSizeA4 = 2;

struct SenderDetails {
    Owned<CFStringRef> name, faxNumber, organization, phoneNumber, emailAddress;
};

struct SenderDetailRow {
    CFStringRef key;
    Owned<CFStringRef> SenderDetails::*detail;
};
/// In the order of the fields.
[[nodiscard]] const std::array<SenderDetailRow, 5>& SenderDetailRows();
/// What names the sender best; null when there is nothing.
[[nodiscard]] CFStringRef SenderTitle(const SenderDetails& sender);

struct CoverSheetChoices {
    bool showsSender = true;
    SenderDetails sender;  // also while it is not shown
    SInt32 recipients = kAllRecipientsItem;
    Owned<CFStringRef> customText;
    Owned<CFStringRef> imageName;  // null: none
    SInt32 size = kCoverSizeLetter;
};

/// What is missing, or of another kind, is as in a new record.
[[nodiscard]] CoverSheetChoices ReadCoverSheetOptions(CFDictionaryRef options);
/// The details of a sender who is not shown are removed; those of another are there, an empty one
/// too, so that who has cleared the name keeps it so. The labels are those of the user's language.
void WriteCoverSheetOptions(const CoverSheetChoices& choices, CFBundleRef bundle,
                            CFMutableDictionaryRef options);

/// Stores what the user's own card gives: names, organization, the telephone and the e-mail address
/// that it prefers to others. The user may have to wait, and need not.
void CopySenderInformationFromPhonebook(CFMutableDictionaryRef options);

}  // namespace kalmo
