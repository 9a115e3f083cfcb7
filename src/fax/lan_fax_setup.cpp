#include "fax/lan_fax_setup.h"

#include "controls/modal_dialog.h"
#include "controls/pictures.h"
#include "fax/address_book_picker.h"
#include "fax/cover_preview.h"
#include "fax/cover_sheet_setup.h"
#include "fax/fax_option_controls.h"
#include "fax/fax_options.h"
#include "fax/fax_preferences.h"
#include "fax/fax_recipients_model.h"
#include "fax/recipient_dialogs.h"
#include "system/clock.h"

namespace kalmo {
namespace {

constexpr SInt32 kTabsID = 100, kListID = 200, kAddID = 201, kAddressBookID = 202, kEditID = 203,
                 kSaveGroupID = 204, kRemoveID = 205, kPreviewID = 305, kPreferencesID = 904;

constexpr struct {
    SInt32 button;
    const char* picture;
} kPictures[] = {
    {kAddID, "ButtonGraphic_AddRecipient.gif"},
    {kAddressBookID, "ButtonGraphic_AddFromAddressBook.gif"},
    {kEditID, "ButtonGraphic_EditRecipient.gif"},
    {kSaveGroupID, "ButtonGraphic_SaveGroup.gif"},
    {kRemoveID, "ButtonGraphic_RemoveRecipient.gif"},
};

using Focus = FaxOptionControls::Focus;

/// Options and recipients as they were, to be put back.
class Backup final {
public:
    Backup(CFMutableDictionaryRef options, FaxRecipientList* recipients)
        : options_(Owned<CFMutableDictionaryRef>::Adopt(
              CFDictionaryCreateMutableCopy(kCFAllocatorDefault, 0, options))),
          recipients_(*recipients) {}

    void restore(CFMutableDictionaryRef options, FaxRecipientList* recipients) const {
        ReplaceOptions(options, options_);
        recipients->removeAll();
        for (CFIndex i = 0; i < recipients_.count(); ++i)
            recipients->append(recipients_.recipientAtIndex(i));
    }

private:
    Owned<CFMutableDictionaryRef> options_;
    FaxRecipientList recipients_;
};

class LANFaxSetup final : public ModalDialog {
public:
    LANFaxSetup(CFBundleRef bundle, CFMutableDictionaryRef options, FaxRecipientList* recipients)
        : ModalDialog(bundle,
                      {.file = kFaxInterfaceFile,
                       .window = CFSTR("Setup"),
                       .helpPage = CFSTR("Paper_Output/Job_Type/Fax/M_LAN_Fax_Overview.htm")}),
          options_(options),
          model_{.bundle = bundle,
                 .list = recipients,
                 .promptDuplicate = BooleanOr(options, kFaxPromptDuplicateProperty, true),
                 .promptRemove = BooleanOr(options, kFaxPromptRemoveProperty, true)},
          imageIndex_(NumberOr(options, kFaxWaterMarkSelectedIndex, kNoCoverImageItem)) {}

    /// Of the cover image menu.
    [[nodiscard]] SInt32 imageIndex() const { return imageIndex_; }

private:
    void prepare() override { InitializeLANFaxSetup(); }
    void controlWasHit(SInt32 id) override { LANFaxSetupEventHandler(id); }
    void listWasUsed(SInt32, UInt32 kind) override { recipientsWereUsed(kind); }
    void textWasTyped(SInt32) override { drawPreview(); }

    void InitializeLANFaxSetup() {
        for (const auto& row : kPictures) SetButtonPicture(control(row.button), row.picture);
        model_.listView = control(kListID);
        SetUpRecipientView(bundle(), model_.listView);
        ShowRecipients(model_.listView, *model_.list);
        UpdateCommandButtons();
        controls_ = FaxOptionControls(bundle(), window());
        controls_.SyncToUI(options_);
        SetControl32BitValue(control(kTabsID), 1);
        preview_.setControl(control(kPreviewID));
        drawPreview();
        SetKeyboardFocus(control(model_.list->count() > 0 ? kListID : kAddID));
    }

    bool accept() override {
        if (CheckMaxDialingStringExceeded()) return false;
        controls_.SyncFromUI(options_, GetLongDateTime());
        SetBoolean(options_, kFaxPromptDuplicateProperty, model_.promptDuplicate);
        SetBoolean(options_, kFaxPromptRemoveProperty, model_.promptRemove);
        return true;
    }

    void LANFaxSetupEventHandler(SInt32 id) {
        switch (id) {
            case kTabsID:
                CheckMaxDialingStringExceeded();
                break;
            case kSendNowID:
            case kSendAtID:
                return controls_.UpdateSendTimeControls(Focus::follows);
            case kPrefixBoxID:
                model_.isLengthCheckArmed = true;
                return controls_.UpdateDialingPrefixControls(Focus::follows);
            case kCreditCardBoxID:
                model_.isLengthCheckArmed = true;
                return controls_.UpdateCreditCardControls(Focus::follows);
            case kCoverMenuID:
                if (controls_.UpdateCoverSheetControls(Focus::follows)) setUpCover();
                return drawPreview();
            case kCoverSetupID:
                return setUpCover();
            case kAddID:
                return addByHand();
            case kAddressBookID:
                return addFromAddressBook();
            case kEditID:
                return editSelected();
            case kSaveGroupID:
                RunModalSaveGroupDialog(bundle(), model_.list);
                return;
            case kRemoveID:
                return removeSelected();
            case kPreferencesID:
                RunModalFaxPreferencesDialog(bundle(), &model_.promptDuplicate,
                                             &model_.promptRemove);
                return;
        }
    }

    void recipientsWereUsed(UInt32 kind) {
        const bool isNothingSelected = GetListSelection(model_.listView).empty();
        if (kind == kEventListSelectionChanged) UpdateCommandButtons();
        if (kind == kEventListSortChanged) ShowRecipients(model_.listView, *model_.list);
        if (kind == kEventListItemOpened) editSelected();
        if (kind == kEventListGroundOpened && isNothingSelected) addByHand();
    }

    OSStatus draw(SInt32 id, EventRef event) override {
        return id == kPreviewID ? preview_.draw(event) : eventNotHandledErr;
    }

    void UpdateCommandButtons() const {
        const std::size_t selected = GetListSelection(model_.listView).size();
        enable(kEditID, selected == 1);
        enable(kRemoveID, selected > 0);
        enable(kSaveGroupID, model_.list->count() > 0);
    }

    void addByHand() {
        if (RunModalAddRecipientDialog(&model_)) recipientsWereAdded();
    }

    void addFromAddressBook() {
        if (RunModalFaxABPicker(&model_) == 1) recipientsWereAdded();
    }

    void recipientsWereAdded() {
        ShowRecipients(model_.listView, *model_.list);
        CheckMaxDialingStringExceeded();
        recipientsHaveChanged();
    }

    void editSelected() {
        const auto selected = SelectedRecipients(model_.listView);
        if (selected.empty()) return;
        EditRecipient(bundle(), selected.front());
        ShowRecipients(model_.listView, *model_.list);
        drawPreview();
    }

    void removeSelected() {
        if (RemoveSelectedRecipients(model_.listView, &model_)) recipientsHaveChanged();
    }

    void recipientsHaveChanged() {
        UpdateCommandButtons();
        drawPreview();
    }

    /// True when the job must not be accepted yet. The check may have removed recipients, and
    /// switched prefix and credit card off.
    bool CheckMaxDialingStringExceeded() {
        if (!model_.isLengthCheckArmed) return false;
        DialingPart prefix = controls_.dialingPrefix(), creditCard = controls_.creditCard();
        // Who is asked may rename a recipient, too: the list alone does not show that.
        const bool isAsked =
            !FindMaxCharacters(*model_.list, prefix.length, creditCard.length).empty();
        const bool isValid = ValidateMaxCharacters(&model_, &prefix, &creditCard);
        if (isValid) model_.isLengthCheckArmed = false;
        controls_.setDialingPrefix(prefix);
        controls_.setCreditCard(creditCard);
        ShowRecipients(model_.listView, *model_.list);
        if (isAsked) recipientsHaveChanged();
        return !isValid;
    }

    void setUpCover() {
        RunModalCoverSheetSetupDialog(bundle(), model_.list, options_, controls_.notes(),
                                      &imageIndex_);
        drawPreview();
    }

    void drawPreview() {
        DrawFaxCoverPreview(preview_, {.bundle = bundle(),
                                       .options = options_,
                                       .list = model_.list,
                                       .notes = controls_.notes(),
                                       .imageIndex = imageIndex_});
    }

    CFMutableDictionaryRef options_;  // lent
    FaxRecipientsModel model_;
    SInt32 imageIndex_;
    FaxOptionControls controls_;
    FaxCoverPreview preview_;
};

/// Cancel puts everything back but the image's item.
void FinalizeLANFaxSetup(SInt32 result, SInt32 imageIndex, const Backup& backup,
                         CFMutableDictionaryRef options, FaxRecipientList* recipients) {
    CFDictionarySetValue(options, kFaxWaterMarkSelectedIndex, CreateNumber(imageIndex));
    if (result != kModalOK) backup.restore(options, recipients);
}

}  // namespace

SInt32 RunModalLANFaxSetup(CFBundleRef bundle, CFMutableDictionaryRef options,
                           FaxRecipientList* recipients) {
    const Backup backup(options, recipients);
    LANFaxSetup dialog(bundle, options, recipients);
    const SInt32 result = dialog.run();
    FinalizeLANFaxSetup(result, dialog.imageIndex(), backup, options, recipients);
    return result;
}

}  // namespace kalmo
