#include "fax/cover_sheet_options.h"

#include <algorithm>

#include "fax/fax_address_book.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

struct LabelRow {
    CFStringRef key, textKey;
};

std::array<LabelRow, 3> SenderLabels() {
    return {{{kFaxLocalizedFromLabel, CFSTR("From Label")},
             {kFaxLocalizedPhoneLabel, CFSTR("Phone Label")},
             {kFaxLocalizedFaxLabel, CFSTR("Fax Label")}}};
}

void SetNumber(CFMutableDictionaryRef options, CFStringRef key, SInt32 value) {
    CFDictionarySetNumber(options, key, kCFNumberSInt32Type, &value);
}

/// Kept as it is: the numbers of the first two are not those of the menu.
SInt32 StoredRecipients(SInt32 item) {
    if (item == kNoRecipientsItem) return kHideRecipients;
    return item == kCustomTextItem ? kShowCustomText : kShowAllRecipients;
}

SInt32 RecipientsItem(SInt32 stored) {
    if (stored == kHideRecipients) return kNoRecipientsItem;
    return stored == kShowCustomText ? kCustomTextItem : kAllRecipientsItem;
}

void SetLabel(CFMutableDictionaryRef options, const LabelRow& row, CFBundleRef bundle) {
    CFDictionarySetValue(options, row.key, CopyText(bundle, row.textKey, kFaxTextTable));
}

void WriteSender(const CoverSheetChoices& choices, CFBundleRef bundle,
                 CFMutableDictionaryRef options) {
    SetBoolean(options, kFaxShowSenderProperty, choices.showsSender);
    for (const auto& row : SenderLabels()) {
        if (choices.showsSender)
            SetLabel(options, row, bundle);
        else
            CFDictionaryRemoveValue(options, row.key);
    }
    for (const auto& row : SenderDetailRows()) {
        const auto& detail = choices.sender.*row.detail;
        if (choices.showsSender)
            CFDictionarySetValue(options, row.key, detail ? detail.get() : CFSTR(""));
        else
            CFDictionaryRemoveValue(options, row.key);
    }
}

void WriteRecipients(const CoverSheetChoices& choices, CFBundleRef bundle,
                     CFMutableDictionaryRef options) {
    SetNumber(options, kFaxShowRecipientsProperty, StoredRecipients(choices.recipients));
    if (choices.recipients == kNoRecipientsItem)
        CFDictionaryRemoveValue(options, kFaxLocalizedToLabel);
    else
        SetLabel(options, {kFaxLocalizedToLabel, CFSTR("To Label")}, bundle);
    if (choices.recipients == kCustomTextItem)
        CFDictionarySetValue(options, kFaxCustomRecipientTextProperty,
                             choices.customText ? choices.customText.get() : CFSTR(""));
}

/// Without a name of its own the card may still have the whole of it.
Owned<CFStringRef> FullName(const contacts::Person& person) {
    Owned<CFStringRef> first, last;
    RecipientNamesFromPerson(person, first.adopt(), last.adopt());
    TextParts names;
    names.add(first);
    names.add(last);
    auto joined = Owned<CFStringRef>::Adopt(names.joined(CFSTR(" ")));
    if (CFStringGetLength(joined) > 0) return joined;
    return Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(person.full));
}

void SetIfGiven(CFMutableDictionaryRef options, CFStringRef key, const std::string& text) {
    if (!text.empty())
        CFDictionarySetValue(options, key, Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(text)));
}

void SetIfGiven(CFMutableDictionaryRef options, CFStringRef key, const contacts::Entry* entry) {
    if (entry) SetIfGiven(options, key, entry->value);
}

}  // namespace

const std::array<SenderDetailRow, 5>& SenderDetailRows() {
    using Details = SenderDetails;
    static const std::array<SenderDetailRow, 5> rows{{
        {kFaxSenderNameProperty, &Details::name},
        {kFaxSenderFaxNumberProperty, &Details::faxNumber},
        {kFaxSenderOrganizationProperty, &Details::organization},
        {kFaxSenderPhoneNumberProperty, &Details::phoneNumber},
        {kFaxSenderEmailAddressProperty, &Details::emailAddress},
    }};
    return rows;
}

CFStringRef SenderTitle(const SenderDetails& sender) {
    for (const auto detail :
         {&SenderDetails::name, &SenderDetails::organization, &SenderDetails::emailAddress,
          &SenderDetails::phoneNumber, &SenderDetails::faxNumber})
        if (CFStringGetLength(sender.*detail) > 0) return sender.*detail;
    return nullptr;
}

CoverSheetChoices ReadCoverSheetOptions(CFDictionaryRef options) {
    CoverSheetChoices choices;
    choices.showsSender = BooleanOr(options, kFaxShowSenderProperty, true);
    for (const auto& row : SenderDetailRows())
        choices.sender.*row.detail =
            Owned<CFStringRef>::Retain(StringInDictionary(options, row.key));
    choices.recipients =
        RecipientsItem(NumberOr(options, kFaxShowRecipientsProperty, kShowAllRecipients));
    choices.customText =
        Owned<CFStringRef>::Retain(StringInDictionary(options, kFaxCustomRecipientTextProperty));
    if (BooleanOr(options, kFaxShowWatermarkProperty, false))
        choices.imageName =
            Owned<CFStringRef>::Retain(StringInDictionary(options, kFaxWatermarkNameProperty));
    choices.size = NumberOr(options, kFaxCoverSizeProperty, kCoverSizeLetter);
    return choices;
}

void WriteCoverSheetOptions(const CoverSheetChoices& choices, CFBundleRef bundle,
                            CFMutableDictionaryRef options) {
    WriteSender(choices, bundle, options);
    WriteRecipients(choices, bundle, options);
    SetBoolean(options, kFaxShowWatermarkProperty, choices.imageName);
    SetOrRemove(options, kFaxWatermarkNameProperty, choices.imageName);
    SetNumber(options, kFaxCoverSizeProperty, choices.size);
}

void CopySenderInformationFromPhonebook(CFMutableDictionaryRef options) {
    const auto me = CopyMyCard();
    if (!me) return;
    const auto name = FullName(*me);
    if (CFStringGetLength(name) > 0) CFDictionarySetValue(options, kFaxSenderNameProperty, name);
    SetIfGiven(options, kFaxSenderOrganizationProperty, me->organization);
    SetIfGiven(options, kFaxSenderPhoneNumberProperty, PrimaryTelephone(*me));
    SetIfGiven(options, kFaxSenderEmailAddressProperty, PrimaryEmail(*me));
}

}  // namespace kalmo
