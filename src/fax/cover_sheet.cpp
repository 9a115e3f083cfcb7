#include "fax/cover_sheet.h"

#include "fax/fax_options.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

// Of each text; a screen reader would read on for minutes.
constexpr CFIndex kMostDescribed = 200;

bool IsGiven(CFStringRef text) { return CFStringGetLength(text) > 0; }

/// Null stays null. The original may be changed by its owner.
Owned<CFStringRef> Copied(CFStringRef text) {
    return Owned<CFStringRef>::Adopt(text ? CFStringCreateCopy(kCFAllocatorDefault, text)
                                          : nullptr);
}

Owned<CFStringRef> Joined(const TextParts& parts, CFStringRef separator) {
    return Owned<CFStringRef>::Adopt(parts.joined(separator));
}

void AppendLine(CFMutableStringRef lines, CFStringRef text) {
    if (!IsGiven(text)) return;
    CFStringAppend(lines, text);
    CFStringAppend(lines, CFSTR("\n"));
}

void AppendNumber(CFMutableStringRef lines, CFStringRef label, CFStringRef number) {
    if (!IsGiven(number)) return;
    const CFStringRef named = label ? label : CFSTR("");
    AppendLine(lines, Owned<CFStringRef>::Adopt(CFStringCreateWithFormat(
                          kCFAllocatorDefault, CFSTR("%@ : %@"), named, number)));
}

/// A recipient without a name has a place in the row all the same.
Owned<CFStringRef> NamesOf(const FaxRecipientList* list) {
    const auto names = Owned<CFMutableArrayRef>::Adopt(
        CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks));
    for (CFIndex i = 0; list && i < list->count(); ++i)
        CFArrayAppendValue(
            names, Owned<CFStringRef>::Adopt(DisplayNameFromRecipient(list->recipientAtIndex(i))));
    return Owned<CFStringRef>::Adopt(
        CFStringCreateByCombiningStrings(kCFAllocatorDefault, names, CFSTR(", ")));
}

void SetSender(CoverSheet& cover, const CoverSheetState& state) {
    if (!BooleanOr(state.options, kFaxShowSenderProperty, false)) return;
    const auto option = [&](CFStringRef key) { return StringInDictionary(state.options, key); };
    cover.senderLabel = CopyText(state.bundle, CFSTR("From Label"), kFaxTextTable);
    cover.senderText = Owned<CFStringRef>::Adopt(CreateLANFaxSenderInformation(
        option(kFaxSenderNameProperty), option(kFaxSenderOrganizationProperty),
        option(kFaxSenderEmailAddressProperty),
        CopyText(state.bundle, CFSTR("Phone Label"), kFaxTextTable),
        option(kFaxSenderPhoneNumberProperty),
        CopyText(state.bundle, CFSTR("Fax Label"), kFaxTextTable),
        option(kFaxSenderFaxNumberProperty)));
}

void SetRecipients(CoverSheet& cover, const CoverSheetState& state) {
    const SInt32 shown = NumberOr(state.options, kFaxShowRecipientsProperty, kShowAllRecipients);
    if (shown == kHideRecipients) return;
    cover.recipientsLabel = CopyText(state.bundle, CFSTR("To Label"), kFaxTextTable);
    cover.recipientsText =
        shown == kShowCustomText
            ? Copied(StringInDictionary(state.options, kFaxCustomRecipientTextProperty))
            : NamesOf(state.list);
}

void SetNotes(CoverSheet& cover, const CoverSheetState& state) {
    cover.notesText = Copied(state.notes);
    if (IsGiven(cover.notesText))
        cover.notesLabel = CopyText(state.bundle, CFSTR("Notes Label"), kFaxTextTable);
}

void AddSection(TextParts& parts, CFStringRef label, CFStringRef text) {
    if (!IsGiven(text)) return;
    TextParts section;
    section.add(label);
    section.add(CopyShortened(text, kMostDescribed));
    parts.add(Joined(section, CFSTR(" ")));
}

}  // namespace

CGSize FaxCoverPageSize(SInt32 size) {
    return size == kCoverSizeLetter ? CGSize{612, 792} : CGSize{595, 842};
}

CoverSheet AssembleCoverSheet(const CoverSheetState& state) {
    CoverSheet cover;
    SetSender(cover, state);
    SetRecipients(cover, state);
    SetNotes(cover, state);
    if (state.imageIndex > kNoCoverImageItem)
        cover.imageName = Copied(StringInDictionary(state.options, kFaxWatermarkNameProperty));
    cover.page = FaxCoverPageSize(NumberOr(state.options, kFaxCoverSizeProperty, kCoverSizeLetter));
    return cover;
}

Owned<CFStringRef> DescribeCoverSheet(CFBundleRef bundle, const CoverSheet& cover,
                                      bool imageIsMissing) {
    const bool isLetter = cover.page.width == FaxCoverPageSize(kCoverSizeLetter).width;
    TextParts parts;
    parts.add(isLetter ? CopyText(bundle, CFSTR("Cover Sheet On Letter"), kFaxTextTable)
                       : CopyText(bundle, CFSTR("Cover Sheet On A4"), kFaxTextTable));
    AddSection(parts, cover.senderLabel, cover.senderText);
    AddSection(parts, cover.recipientsLabel, cover.recipientsText);
    AddSection(parts, cover.notesLabel, cover.notesText);
    if (cover.imageName) {
        const auto format =
            imageIsMissing ? CopyText(bundle, CFSTR("Cover Sheet Image Missing"), kFaxTextTable)
                           : CopyText(bundle, CFSTR("Cover Sheet With Image"), kFaxTextTable);
        const auto name = CopyShortened(cover.imageName, kMostDescribed);
        parts.add(Owned<CFStringRef>::Adopt(
            CFStringCreateWithFormat(kCFAllocatorDefault, format, name.get())));
    }
    return Joined(parts, CFSTR("\n"));
}

CFStringRef CreateLANFaxSenderInformation(CFStringRef name, CFStringRef organization,
                                          CFStringRef emailAddress, CFStringRef phoneLabel,
                                          CFStringRef phoneNumber, CFStringRef faxLabel,
                                          CFStringRef faxNumber) {
    const CFMutableStringRef lines = CFStringCreateMutable(kCFAllocatorDefault, 0);
    AppendLine(lines, name);
    AppendLine(lines, organization);
    AppendLine(lines, emailAddress);
    AppendNumber(lines, phoneLabel, phoneNumber);
    AppendNumber(lines, faxLabel, faxNumber);
    return lines;
}

}  // namespace kalmo
