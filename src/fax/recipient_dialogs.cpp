#include "fax/recipient_dialogs.h"

#include <iterator>

#include "controls/input_limits.h"
#include "controls/modal_dialog.h"
#include "fax/dialing_string.h"
#include "fax/fax_options.h"
#include "shell/base/notices.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

constexpr SInt32 kNameID = 201, kLastNameID = 202, kFaxNumberID = 211, kMailboxID = 251;
/// A last name from an address book may be long.
constexpr CFIndex kLongestLastName = 30;

constexpr struct {
    SInt32 field;
    CFStringRef (FaxRecipient::*get)() const;
    void (FaxRecipient::*set)(CFStringRef);
} kFields[] = {
    {kNameID, &FaxRecipient::firstName, &FaxRecipient::setFirstName},
    {kFaxNumberID, &FaxRecipient::faxNumber, &FaxRecipient::setFaxNumber},
    {221, &FaxRecipient::organization, &FaxRecipient::setOrganization},
    {231, &FaxRecipient::phoneNumber, &FaxRecipient::setPhoneNumber},
    {241, &FaxRecipient::emailAddress, &FaxRecipient::setEmailAddress},
    {kMailboxID, &FaxRecipient::mailbox, &FaxRecipient::setMailbox},
};

bool IsEmpty(CFStringRef text) { return CFStringGetLength(text) == 0; }

bool IsBlank(CFStringRef text) {
    return CFStringToUTF8(text).find_first_not_of(" \t\r\n") == std::string::npos;
}

class RecipientDialog : public ModalDialog {
public:
    RecipientDialog(CFBundleRef bundle, CFStringRef titleKey, FaxRecipient* recipient)
        : ModalDialog(
              bundle,
              {.file = kFaxInterfaceFile,
               .window = CFSTR("Recipient"),
               .helpPage = CFSTR("Paper_Output/Job_Type/Fax/Fax_Recipients/add_recipient.htm"),
               .titleKey = titleKey,
               .titleTable = kFaxTextTable}),
          recipient_(recipient) {}

protected:
    [[nodiscard]] FaxRecipient* recipient() const { return recipient_; }
    bool accept() override { return SyncDialogToFaxRecipient(); }

private:
    void prepare() override {
        // The limits are for typing: what is shown before stays, whatever it is.
        LimitInputLengthAndCharacters(control(kFaxNumberID), 0, kMaxFaxNumber,
                                      kFaxDialingCharacterSet);
        LimitInputLengthAndCharacters(control(kMailboxID), 0, kMaxMailbox, kFaxDigitSet);
        for (const auto& row : kFields) {
            const CFStringRef text = (recipient_->*row.get)();
            SetControlTitleWithCFString(control(row.field), text ? text : CFSTR(""));
            SetControlTextSelection(control(row.field), {0, 0});
        }
        showLastName();
        SetKeyboardFocus(control(kNameID));
    }

    /// What is typed as the name becomes the first name, and a last name, which only an address
    /// book gives, is kept. So it stands behind the field and not in it: in it, it would come
    /// twice.
    void showLastName() const {
        const auto lastName = CopyShortened(
            recipient_->lastName() ? recipient_->lastName() : CFSTR(""), kLongestLastName);
        SetControlTitleWithCFString(control(kLastNameID), lastName);
        (IsEmpty(lastName) ? HideControl : ShowControl)(control(kLastNameID));

        const auto required = CopyText(bundle(), CFSTR("(Required)"), kFaxTextTable);
        TextParts words;
        words.add(lastName);
        words.add(required);
        SetControlAccessibleDescription(control(kNameID),
                                        Owned<CFStringRef>::Adopt(words.joined(CFSTR(" "))));
        SetControlAccessibleDescription(control(kFaxNumberID), required);
    }

    bool SyncDialogToFaxRecipient() {
        const auto name = textIn(kNameID);
        if (IsBlank(name) && !hasLastNameAlone())
            return refuse(kNameID, CFSTR("Name Required Message"));
        if (IsBlank(textIn(kFaxNumberID)))
            return refuse(kFaxNumberID, CFSTR("Fax Number Required Message"));
        for (const auto& row : kFields) {
            const auto text = textIn(row.field);
            (recipient_->*row.set)(IsEmpty(text) ? nullptr : text.get());
        }
        return true;
    }

    /// It came so from an address book, and need not get a first name to be changed.
    [[nodiscard]] bool hasLastNameAlone() const {
        return IsEmpty(recipient_->firstName()) && !IsEmpty(recipient_->lastName());
    }

    bool refuse(SInt32 field, CFStringRef messageKey) const {
        ShowNoticeWithKeys(bundle(),
                           NoticeKeys{.header = CFSTR("Required Field Header"),
                                      .message = messageKey,
                                      .table = kFaxTextTable},
                           nullptr, 0);
        SetKeyboardFocus(control(field));
        return false;
    }

    [[nodiscard]] Owned<CFStringRef> textIn(SInt32 field) const {
        return Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(control(field)));
    }

    FaxRecipient* recipient_;  // lent
};

class AddRecipientDialog final : public RecipientDialog {
public:
    AddRecipientDialog(FaxRecipientsModel* model, FaxRecipient* recipient)
        : RecipientDialog(model->bundle, CFSTR("Add Recipient Title"), recipient), model_(model) {}

private:
    /// Who does not want a recipient twice goes on with what was typed.
    bool accept() override {
        return RecipientDialog::accept() && AddRecipient(model_, recipient()) == 1;
    }

    FaxRecipientsModel* model_;  // lent
};

struct RecipientReleaser {
    void operator()(FaxRecipient* recipient) const { FaxRecipientRelease(recipient); }
};

}  // namespace

bool RunModalAddRecipientDialog(FaxRecipientsModel* model) {
    const std::unique_ptr<FaxRecipient, RecipientReleaser> recipient(new FaxRecipient);
    return AddRecipientDialog(model, recipient.get()).run() == kModalOK;
}

bool EditRecipient(CFBundleRef bundle, FaxRecipient* recipient) {
    return RecipientDialog(bundle, CFSTR("Edit Recipient Title"), recipient).run() == kModalOK;
}

}  // namespace kalmo
