#include "controls/modal_dialog.h"
#include "fax/address_book_picker.h"
#include "fax/fax_address_book.h"
#include "fax/fax_options.h"
#include "fax/recipient_saving.h"
#include "shell/base/notices.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

constexpr SInt32 kNameID = 200, kMembersID = 201;
constexpr char kHelpPage[] =
    "Paper_Output/Job_Type/Fax/Fax_Recipients/idh_add_to_apple_address_book.htm";

class SaveGroupDialog final : public ModalDialog {
public:
    SaveGroupDialog(CFBundleRef bundle, FaxRecipientList* list)
        : ModalDialog(bundle, {.file = kFaxInterfaceFile,
                               .window = CFSTR("Group"),
                               .helpPage = CFStringMakeConstant(kHelpPage)}),
          list_(list) {}

private:
    void prepare() override { InitializeSaveGroupDialog(); }
    void listWasUsed(SInt32, UInt32 kind) override { SaveGroupDialogEventHandler(kind); }
    bool accept() override { return FinalizeSaveGroupDialog(); }

    void InitializeSaveGroupDialog() {
        SetUpRecipientView(bundle(), control(kMembersID));
        ShowRecipients(control(kMembersID), *list_);
        SetKeyboardFocus(control(kNameID));
    }

    void SaveGroupDialogEventHandler(UInt32 kind) {
        if (kind == kEventListSortChanged) ShowRecipients(control(kMembersID), *list_);
    }

    bool FinalizeSaveGroupDialog() {
        const auto name = Owned<CFMutableStringRef>::Adopt(CFStringCreateMutableCopy(
            kCFAllocatorDefault, 0,
            Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(control(kNameID)))));
        CFStringTrim(name, CFSTR(" "));
        group_.name = CFStringToUTF8(name);
        if (group_.name.empty()) return askForName(), false;
        return CreateABGroupWithNameAndRecipients();
    }

    bool CreateABGroupWithNameAndRecipients() {
        const contacts::Answer answer = SaveAsGroup(*list_, group_);
        if (!answer) tell(answer);
        return static_cast<bool>(answer);
    }

    void askForName() const {
        ShowNoticeWithKeys(bundle(),
                           {.header = CFSTR("Required Field Header"),
                            .message = CFSTR("Group Name Required Message"),
                            .table = kFaxTextTable},
                           nullptr, 0);
        SetKeyboardFocus(control(kNameID));
    }

    /// Who stopped waiting knows.
    void tell(const contacts::Answer& answer) {
        if (const auto trouble = CopyAddressBookTrouble(bundle(), answer))
            ShowNotice(CopyText(bundle(), CFSTR("Group Not Saved Header"), kFaxTextTable), trouble);
        // One that was deleted meanwhile is made anew the next time.
        if (answer.code == contacts::Code::notFound) group_ = {};
    }

    FaxRecipientList* list_;  // lent
    contacts::Group group_;   // what stands in the address book of it so far
};

}  // namespace

SInt32 RunModalSaveGroupDialog(CFBundleRef bundle, FaxRecipientList* list) {
    return SaveGroupDialog(bundle, list).run();
}

}  // namespace kalmo
