#include "fax/fax_preferences.h"

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
          promptDuplicate_(promptDuplicate),
          promptRemove_(promptRemove) {}

private:
    void prepare() override {
        SetControl32BitValue(control(kPromptDuplicateID), *promptDuplicate_ != 0);
        SetControl32BitValue(control(kPromptRemoveID), *promptRemove_ != 0);
    }

    bool accept() override {
        *promptDuplicate_ = isOn(kPromptDuplicateID);
        *promptRemove_ = isOn(kPromptRemoveID);
        return true;
    }

    SInt32 *promptDuplicate_, *promptRemove_;
};

}  // namespace

SInt32 RunModalFaxPreferencesDialog(CFBundleRef bundle, SInt32* promptDuplicate,
                                    SInt32* promptRemove) {
    return FaxPreferencesDialog(bundle, promptDuplicate, promptRemove).run();
}

}  // namespace kalmo
