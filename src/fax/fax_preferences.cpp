#include "fax/fax_preferences.h"

#include <array>

#include "controls/modal_dialog.h"
#include "fax/fax_options.h"

namespace kalmo {
namespace {

constexpr SInt32 kPromptDuplicateID = 201, kPromptRemoveID = 202;

class FaxPreferencesDialog final : public ModalDialog {
public:
    FaxPreferencesDialog(CFBundleRef bundle, SInt32* promptDuplicate, SInt32* promptRemove)
        : ModalDialog(bundle, {.file = kFaxInterfaceFile,
                               .window = CFSTR("Preferences"),
                               .helpPage = CFSTR("How_to/m_ht_Manage_Fax_Recipients.htm")}),
          choices_{{{.id = kPromptDuplicateID, .flag = promptDuplicate},
                    {.id = kPromptRemoveID, .flag = promptRemove}}} {}

private:
    struct Choice {
        SInt32 id;
        SInt32* flag;  // lent
        ControlRef box = nullptr;
        SInt32 isChosen = 0;
    };

    void prepare() override { InitializeFaxPreferencesDialog(); }
    void controlWasHit(SInt32 id) override { FaxPreferencesDialogEventHandler(id); }
    bool accept() override { return FinalizeFaxPreferencesDialog(), true; }

    void InitializeFaxPreferencesDialog() {
        InitializeControlReferences();
        for (Choice& choice : choices_) {
            choice.isChosen = *choice.flag != 0;
            SetControl32BitValue(choice.box, choice.isChosen);
        }
    }
    void InitializeControlReferences() {
        for (Choice& choice : choices_) choice.box = control(choice.id);
    }
    void FaxPreferencesDialogEventHandler(SInt32 id) {
        for (Choice& choice : choices_)
            if (choice.id == id) choice.isChosen = isOn(id);
    }
    void FinalizeFaxPreferencesDialog() const {
        for (const Choice& choice : choices_) *choice.flag = choice.isChosen;
    }

    std::array<Choice, 2> choices_;
};

}  // namespace

SInt32 RunModalFaxPreferencesDialog(CFBundleRef bundle, SInt32* promptDuplicate,
                                    SInt32* promptRemove) {
    return FaxPreferencesDialog(bundle, promptDuplicate, promptRemove).run();
}

}  // namespace kalmo
