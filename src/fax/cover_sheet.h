// What the cover sheet of a fax says: its texts, its paper, its image.
#pragma once

#include "fax/fax_recipient_list.h"
#include "foundation/bundle.h"
#include "graphics/geometry.h"

namespace kalmo {

/// What a dialog knows; all lent, and read at once.
struct CoverSheetState {
    CFBundleRef bundle = nullptr;
    CFDictionaryRef options = nullptr;
    const FaxRecipientList* list = nullptr;
    CFStringRef notes = nullptr;
    SInt32 imageIndex = 1;  // the chosen item of the cover image menu
};

/// Null where there is nothing to say. Nothing in it changes any more, so that another thread may
/// draw it.
struct CoverSheet {
    CGSize page{};
    Owned<CFStringRef> senderLabel, senderText, recipientsLabel, recipientsText, notesLabel,
        notesText;
    Owned<CFStringRef> imageName;  // in kFaxImageStore
};

/// 612 x 792 for 1, else 595 x 842.
[[nodiscard]] CGSize FaxCoverPageSize(SInt32 size);
/// Reads no file: whoever draws loads the image.
[[nodiscard]] CoverSheet AssembleCoverSheet(const CoverSheetState& state);
/// The cover in words, for those who cannot see it; long texts are cut. `imageIsMissing`: it could
/// not be drawn.
[[nodiscard]] Owned<CFStringRef> DescribeCoverSheet(CFBundleRef bundle, const CoverSheet& cover,
                                                    bool imageIsMissing);

/// The sender's details that are given, a line each. The caller releases it.
[[nodiscard]] CFStringRef CreateLANFaxSenderInformation(
    CFStringRef name, CFStringRef organization, CFStringRef emailAddress, CFStringRef phoneLabel,
    CFStringRef phoneNumber, CFStringRef faxLabel, CFStringRef faxNumber);

}  // namespace kalmo
