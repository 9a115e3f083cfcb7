#include "fax/length_alert.h"

#include <memory>
#include <utility>

#include "controls/input_limits.h"
#include "controls/modal_dialog.h"
#include "controls/pictures.h"
#include "fax/dialing_string.h"
#include "fax/fax_options.h"
#include "fax/recipient_dialogs.h"

namespace kalmo {
namespace {

constexpr SInt32 kListID = 200, kEditID = 201, kRemoveID = 202, kRemoveAllID = 203,
                 kPrefixBoxID = 301, kPrefixID = 302, kCreditCardBoxID = 303, kCreditCardID = 304;

constexpr struct {
    SInt32 button;
    const char* picture;
} kPictures[] = {
    {kEditID, "ButtonGraphic_EditRecipient.gif"},
    {kRemoveID, "ButtonGraphic_RemoveRecipient.gif"},
    {kRemoveAllID, "ButtonGraphic_RemoveAllRecipients.gif"},
};

class LengthAlert final : public ModalDialog {
public:
    LengthAlert(FaxRecipientsModel* model, DialingPart* prefix, DialingPart* creditCard)
        : ModalDialog(
              model->bundle,
              {.file = kFaxInterfaceFile,
               .window = CFSTR("MaxCharacters"),
               .helpPage = CFSTR("Paper_Output/Job_Type/Fax/Fax_Recipients/dialing_length.htm")}),
          model_(model),
          prefix_(prefix),
          creditCard_(creditCard) {
        find();
    }

    [[nodiscard]] bool areAllValid() const { return invalid_.empty(); }

    /// Once it is closed, however that was done.
    void FinalizeMaxCharactersAlertDialog() const {
        take(kPrefixID, prefix_);
        take(kCreditCardID, creditCard_);
    }

private:
    void prepare() override { InitializeMaxCharactersAlertDialog(); }
    void controlWasHit(SInt32 id) override { MaxCharactersAlertDialogEventHandler(id); }

    void InitializeMaxCharactersAlertDialog() {
        for (const auto& row : kPictures) SetButtonPicture(control(row.button), row.picture);
        SetUpRecipientView(bundle(), control(kListID));
        LimitInputLengthAndCharacters(control(kPrefixID), 0, kMaxDialingPrefix,
                                      kFaxDialingCharacterSet);
        LimitInputLengthAndCharacters(control(kCreditCardID), 0, kMaxCreditCard, kFaxDigitSet);
        show(kPrefixBoxID, kPrefixID, *prefix_);
        show(kCreditCardBoxID, kCreditCardID, *creditCard_);
        ShowRecipients(control(kListID), invalid_);
        UpdateCommandButtons();
    }

    bool accept() override { return true; }

    void MaxCharactersAlertDialogEventHandler(SInt32 id) {
        if (id == kEditID) editSelected();
        if (id == kRemoveID && RemoveSelectedRecipients(control(kListID), model_))
            UpdateInvalidRecipientBrowser();
        if (id == kRemoveAllID && RemoveRecipients(invalid_, model_))
            UpdateInvalidRecipientBrowser();
        if (id == kPrefixBoxID) switchPart(id, kPrefixID, prefix_, *creditCard_);
        if (id == kCreditCardBoxID) switchPart(id, kCreditCardID, creditCard_, *prefix_);
    }

    void listWasUsed(SInt32, UInt32 kind) override {
        if (kind == kEventListSelectionChanged) UpdateCommandButtons();
        if (kind == kEventListSortChanged) ShowRecipients(control(kListID), invalid_);
        if (kind == kEventListItemOpened) editSelected();
    }

    void show(SInt32 box, SInt32 field, const DialingPart& part) const {
        SetControl32BitValue(control(box), part.isOn);
        if (part.text) SetControlTitleWithCFString(control(field), part.text);
        enable(field, part.isOn);
    }

    void editSelected() {
        const auto selected = SelectedRecipients(control(kListID));
        if (selected.empty()) return;
        EditRecipient(bundle(), selected.front());
        UpdateInvalidRecipientBrowser();
    }

    /// The lengths that the setup has measured, whatever the fields hold by now.
    void find() {
        invalid_ = FindMaxCharacters(*model_->list, prefix_->length, creditCard_->length);
    }

    void UpdateInvalidRecipientBrowser() {
        find();
        ShowRecipients(control(kListID), invalid_);
        UpdateCommandButtons();
    }

    void UpdateCommandButtons() const {
        const std::size_t selected = GetListSelection(control(kListID)).size();
        enable(kEditID, selected == 1);
        enable(kRemoveID, selected > 0);
        enable(kRemoveAllID, !invalid_.empty());
    }

    void switchPart(SInt32 box, SInt32 field, DialingPart* part, const DialingPart& other) const {
        part->isOn = isOn(box);
        enable(field, part->isOn);
        // The prefix for either box: without a prefix, a card switched on leaves the focus alone.
        if (part->isOn && !other.isOn) SetKeyboardFocus(control(kPrefixID));
    }

    void take(SInt32 field, DialingPart* part) const {
        if (!part->isOn && !part->text) return;
        const auto typed = Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(control(field)));
        part->text = Owned<CFMutableStringRef>::Adopt(CFStringCreateMutableCopy(
            kCFAllocatorDefault, 0, part->isOn ? typed.get() : CFSTR("")));
    }

    FaxRecipientsModel* model_;  // lent, as are the parts
    DialingPart *prefix_, *creditCard_;
    std::vector<FaxRecipient*> invalid_;  // in the list's order
};

}  // namespace

std::vector<FaxRecipient*> FindMaxCharacters(const FaxRecipientList& list, CFIndex prefixLength,
                                             CFIndex creditCardLength) {
    std::vector<FaxRecipient*> invalid;
    for (CFIndex i = 0; i < list.count(); ++i) {
        FaxRecipient* const recipient = list.recipientAtIndex(i);
        const auto dialed =
            Owned<CFStringRef>::Adopt(CopyDialingStringFromFaxNumber(recipient->faxNumber()));
        if (CFStringGetLength(dialed) + prefixLength + creditCardLength > kMaxDialingString)
            invalid.push_back(recipient);
    }
    return invalid;
}

bool ValidateMaxCharacters(FaxRecipientsModel* model, DialingPart* prefix,
                           DialingPart* creditCard) {
    LengthAlert alert(model, prefix, creditCard);
    if (alert.areAllValid()) return true;
    const SInt32 answer = alert.run();
    // Without its window nothing could be changed, and the first test holds.
    if (answer == kModalOK || answer == kModalCancel) alert.FinalizeMaxCharactersAlertDialog();
    return alert.areAllValid();
}

}  // namespace kalmo
