// What the cover sheet of a fax says: its texts, its paper, its image.
#pragma once

#include <memory>

#include "fax/fax_recipient_list.h"
#include "foundation/bundle.h"
#include "graphics/geometry.h"
#include "watermark/watermark_data.h"

namespace kalmo {

/// What a dialog knows; all lent, and read at once.
struct CoverSheetState {
    CFBundleRef bundle = nullptr;
    CFDictionaryRef options = nullptr;
    const FaxRecipientList* list = nullptr;
    CFStringRef notes = nullptr;
    SInt32 imageIndex = 1;  // the chosen item of the cover image menu
};

/// Texts are null when there are none.
struct CoverSheet {
    CGSize page{};
    Owned<CFStringRef> senderLabel, senderText, recipientsLabel, recipientsText, notesLabel,
        notesText;
    std::shared_ptr<const _WatermarkData> image;  // without glyphs; null: none
};

/// 612 x 792 for 1, else 595 x 842.
[[nodiscard]] CGSize FaxCoverPageSize(SInt32 size);
/// The image comes from its store file.
[[nodiscard]] CoverSheet AssembleCoverSheet(const CoverSheetState& state);

/// The sender's details that are given, a line each. The caller releases it.
[[nodiscard]] CFStringRef CreateLANFaxSenderInformation(
    CFStringRef name, CFStringRef organization, CFStringRef emailAddress, CFStringRef phoneLabel,
    CFStringRef phoneNumber, CFStringRef faxLabel, CFStringRef faxNumber);

}  // namespace kalmo
