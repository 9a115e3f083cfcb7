#include "fax/cover_sheet_setup.h"

#include <algorithm>

#include "controls/modal_dialog.h"
#include "fax/cover_image_menu.h"
#include "fax/cover_images.h"
#include "fax/cover_preview.h"
#include "fax/cover_sheet_options.h"
#include "settings/setting_maps.h"
#include "settings/setting_menus.h"
#include "shell/base/texts.h"
#include "watermark/watermark_menu.h"
#include "watermark/watermark_naming.h"

namespace kalmo {
namespace {

#define kHelpPage CFSTR("Paper_Output/Job_Type/Fax/M_Cover_Sheet_Setup.htm")

constexpr SInt32 kPreviewID = 100, kPaperID = 101, kRecipientsID = 201, kCustomTextID = 202,
                 kSenderID = 301, kSummaryID = 303, kImageID = 401;

/// A longer name without a blank would make the window wider.
constexpr CFIndex kLongestSummary = 32;

constexpr struct {
    SInt32 label, id;
    Owned<CFStringRef> SenderDetails::*detail;
} kSenderFields[] = {
    {310, 311, &SenderDetails::name},         {312, 313, &SenderDetails::faxNumber},
    {314, 315, &SenderDetails::organization}, {316, 317, &SenderDetails::phoneNumber},
    {318, 319, &SenderDetails::emailAddress},
};

Owned<CFMutableDictionaryRef> CopyOf(CFDictionaryRef options) {
    return Owned<CFMutableDictionaryRef>::Adopt(
        CFDictionaryCreateMutableCopy(kCFAllocatorDefault, 0, options));
}

struct CoverSheetSetup {
    const FaxRecipientList* list;
    CFMutableDictionaryRef options;
    CFStringRef notes;
    SInt32* imageIndex;
};

class CoverSheetDialog final : public ModalDialog {
public:
    CoverSheetDialog(CFBundleRef bundle, const CoverSheetSetup& setup)
        : ModalDialog(bundle,
                      {.file = kFaxInterfaceFile, .window = CFSTR("Cover"), .helpPage = kHelpPage}),
          setup_(setup),
          images_(bundle) {}

private:
    void prepare() override { InitializeCoverSheetSetupDialog(); }
    bool accept() override { return FinalizeCoverSheetSetupDialog(), true; }
    OSStatus commandWasSent(UInt32 command, EventRef event) override {
        return CoverSheetSetupDialogEventHandler(command, event);
    }

    void InitializeCoverSheetSetupDialog() {
        preview_.setControl(control(kPreviewID));
        PopulatePopupButtonFromMap(bundle(), control(kRecipientsID), CoverSheetRecipientMap,
                                   JobContext::job, 0);
        PopulatePopupButtonFromMap(bundle(), control(kSenderID), CoverSheetSenderMap,
                                   JobContext::job, 0);
        SyncToUI();
        // Who has never set a cover sheet up starts from the own card.
        if (!CFDictionaryContainsKey(setup_.options, kFaxShowSenderProperty)) senderWasChosen();
    }

    void FinalizeCoverSheetSetupDialog() const {
        SyncFromUI(setup_.options);
        *setup_.imageIndex = images_.item();
    }

    void controlWasHit(SInt32 id) override {
        if (id == kSenderID) senderWasChosen();
        if (id == kRecipientsID) recipientsWereChosen();
    }

    void textWasTyped(SInt32 id) override {
        if (id == kCustomTextID) choices_.customText = typed(id);
        for (const auto& field : kSenderFields)
            if (field.id == id) choices_.sender.*field.detail = typed(id);
        UpdateSenderSummary();
        UpdateCoverPreview();
    }

    OSStatus CoverSheetSetupDialogEventHandler(UInt32 command, EventRef event) {
        if (command == kCoverLetterCommand) return chooseSize(kCoverSizeLetter);
        if (command == kCoverA4Command) return chooseSize(kCoverSizeA4);
        if (command == kNoWatermarkCommand) return images_.chooseNone(), imageWasChosen();
        if (command == kWatermarkCommand) return chooseImage(event);
        const CGSize page = FaxCoverPageSize(choices_.size);
        if (command == kNewCoverImageCommand) return images_.makeNew(page), imagesWereChanged();
        if (command == kEditCoverImageCommand) return images_.edit(page), imagesWereChanged();
        if (command == kDeleteCoverImageCommand) return images_.remove(), imagesWereChanged();
        return eventNotHandledErr;
    }

    OSStatus draw(SInt32 id, EventRef event) override {
        return id == kPreviewID ? preview_.draw(event) : eventNotHandledErr;
    }

    void SyncToUI() {
        choices_ = ReadCoverSheetOptions(setup_.options);
        SetPopupButtonToTicketValue(control(kSenderID),
                                    choices_.showsSender ? kShowSenderItem : kHideSenderItem);
        SetPopupButtonToTicketValue(control(kRecipientsID), choices_.recipients);
        if (choices_.customText)
            SetControlTitleWithCFString(control(kCustomTextID), choices_.customText);
        enable(kCustomTextID, choices_.recipients == kCustomTextItem);
        images_.choose(choices_.imageName);
        showSender();
        imagesWereChanged();
    }

    void SyncFromUI(CFMutableDictionaryRef options) const {
        WriteCoverSheetOptions(choices_, bundle(), options);
    }

    void senderWasChosen() {
        choices_.showsSender = GetPopupButtonTicketValue(control(kSenderID)) == kShowSenderItem;
        if (choices_.showsSender && lacksName()) fillInSender();
        showSender();
        UpdateCoverPreview();
    }

    [[nodiscard]] bool lacksName() const {
        return !CFDictionaryContainsKey(setup_.options, kFaxSenderNameProperty) &&
               CFStringGetLength(choices_.sender.name) == 0;
    }

    /// What was typed stays.
    void fillInSender() {
        CopySenderInformationFromPhonebook(setup_.options);
        const SenderDetails found = ReadCoverSheetOptions(setup_.options).sender;
        for (const auto& field : kSenderFields) {
            auto& detail = choices_.sender.*field.detail;
            if (CFStringGetLength(detail) == 0) detail = found.*field.detail;
        }
    }

    void showSender() {
        for (const auto& field : kSenderFields) {
            const auto& detail = choices_.sender.*field.detail;
            SetControlTitleWithCFString(control(field.id), detail ? detail.get() : CFSTR(""));
            enable(field.id, choices_.showsSender);
            enable(field.label, choices_.showsSender);
        }
        UpdateSenderSummary();
    }

    void UpdateSenderSummary() {
        SetControlTitleWithCFString(control(kSummaryID), senderSummary());
    }

    [[nodiscard]] Owned<CFStringRef> senderSummary() const {
        if (!choices_.showsSender)
            return CopyText(bundle(), CFSTR("Cover Sender Hidden"), kFaxTextTable);
        const CFStringRef title = SenderTitle(choices_.sender);
        if (!title) return CopyText(bundle(), CFSTR("Cover Sender Missing"), kFaxTextTable);
        return CopySentence(CopyText(bundle(), CFSTR("Cover Sender Named"), kFaxTextTable),
                            CopyShortened(title, kLongestSummary));
    }

    void recipientsWereChosen() {
        choices_.recipients = GetPopupButtonTicketValue(control(kRecipientsID));
        const bool isCustom = choices_.recipients == kCustomTextItem;
        enable(kCustomTextID, isCustom);
        if (isCustom) SetKeyboardFocus(control(kCustomTextID));
        UpdateCoverPreview();
    }

    OSStatus chooseSize(SInt32 size) {
        choices_.size = size;
        return imageWasChosen();
    }

    OSStatus chooseImage(EventRef event) {
        MenuRef menu = nullptr;
        UInt16 item = 0;
        ItemReference index = 0;
        if (!GetEventMenuItem(event, &menu, &item)) return eventNotHandledErr;
        GetMenuItemRefCon(menu, item, &index);
        images_.choose(CFIndex{index});
        return imageWasChosen();
    }

    OSStatus imagesWereChanged() {
        PopulateCoverSheetImageMenuFromMapAndHistory(imageMenu(), bundle(), images_.names());
        return imageWasChosen();
    }

    OSStatus imageWasChosen() {
        choices_.imageName = Owned<CFStringRef>::Retain(images_.chosenName());
        MarkCoverSheetImageMenu(imageMenu(), images_.item(), choices_.size);
        SetControlTitleWithCFString(control(kImageID), CopyAsTitle(imageTitle()));
        SetControlTitleWithCFString(control(kPaperID), paperText());
        UpdateCoverPreview();
        return noErr;
    }

    [[nodiscard]] Owned<CFStringRef> imageTitle() const {
        return choices_.imageName ? CopyShortened(choices_.imageName, kLongestWatermarkTitle)
                                  : CopyText(bundle(), CFSTR("NoWatermark"));
    }

    [[nodiscard]] Owned<CFStringRef> paperText() const {
        return CopySentence(CopyText(bundle(), CFSTR("Cover Paper"), kFaxTextTable),
                            choices_.size == kCoverSizeLetter
                                ? CopyText(bundle(), CFSTR("StockSizeLetter"))
                                : CopyText(bundle(), CFSTR("StockSizeA4")));
    }

    /// The cover as the controls say; the options themselves wait for OK.
    void UpdateCoverPreview() {
        const auto options = CopyOf(setup_.options);
        SyncFromUI(options);
        DrawFaxCoverPreview(preview_, {.bundle = bundle(),
                                       .options = options,
                                       .list = setup_.list,
                                       .notes = setup_.notes,
                                       .imageIndex = images_.item()});
    }

    [[nodiscard]] Owned<CFStringRef> typed(SInt32 id) const {
        return Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(control(id)));
    }
    [[nodiscard]] MenuRef imageMenu() const { return GetControlPopupMenu(control(kImageID)); }

    CoverSheetSetup setup_;
    CoverSheetChoices choices_;
    CoverImages images_;
    FaxCoverPreview preview_;
};

}  // namespace

SInt32 RunModalCoverSheetSetupDialog(CFBundleRef bundle, const FaxRecipientList* list,
                                     CFMutableDictionaryRef options, CFStringRef notes,
                                     SInt32* imageIndex) {
    const auto before = CopyOf(options);
    const SInt32 result = CoverSheetDialog(bundle, {list, options, notes, imageIndex}).run();
    // The sender that was filled in stands in the options already.
    if (result != kModalOK) ReplaceOptions(options, before);
    return result;
}

}  // namespace kalmo
