#include "controls/custom_value_dialog.h"

#include <climits>

#include "controls/input_limits.h"
#include "controls/modal_dialog.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

constexpr SInt32 kTextField = 123456, kLabel = 123455;

class CustomValueDialog final : public ModalDialog {
public:
    CustomValueDialog(CFBundleRef bundle, SInt32 minimumLength, SInt32 maximumLength,
                      CFStringRef text, const CustomValueTexts& texts)
        : ModalDialog(bundle, {.file = CFSTR("Utilities"),
                               .window = CFSTR("CustomValue"),
                               .helpPage = CFSTR("image_options/db_custom_color_d.htm")}),
          minimumLength_(minimumLength),
          maximumLength_(maximumLength),
          texts_(texts),
          text_(Owned<CFStringRef>::Retain(text)) {}

    [[nodiscard]] Owned<CFStringRef> text() const { return text_; }

protected:
    void prepare() override {
        if (texts_.titleKey)
            SetWindowTitleWithCFString(window(), CopyText(bundle(), texts_.titleKey));
        if (texts_.labelKey)
            SetControlTitleWithCFString(control(kLabel), CopyText(bundle(), texts_.labelKey));
        const ControlRef field = control(kTextField);
        LimitInputLengthAndCharacters(field, minimumLength_, maximumLength_, nullptr);
        if (text_) SetControlTitleWithCFString(field, text_);
        inputWasChecked(kTextField, CheckInput(field));
        SetKeyboardFocus(field);
        SetControlTextSelection(field, {0, INT32_MAX});
    }

    bool accept() override {
        text_ = Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(control(kTextField)));
        return true;
    }

    void inputWasChecked(SInt32 /*id*/, UInt32 state) override {
        ControlRef okButton = nullptr;
        GetWindowDefaultButton(window(), &okButton);
        if (state == kEventInputLongEnough)
            EnableControl(okButton);
        else
            DisableControl(okButton);
    }

private:
    SInt32 minimumLength_, maximumLength_;
    CustomValueTexts texts_;
    Owned<CFStringRef> text_;
};

}  // namespace

OSStatus RunModalCustomValueDialog(CFBundleRef bundle, SInt32 minimumLength, SInt32 maximumLength,
                                   CFStringRef* text, SInt32* button,
                                   const CustomValueTexts& texts) {
    if (!text || !button) return paramErr;
    CustomValueDialog dialog(bundle, minimumLength, maximumLength, *text, texts);
    const SInt32 answer = dialog.run();
    if (answer != kModalOK && answer != kModalCancel) return answer;
    *button = answer == kModalOK ? kCustomValueOK : kCustomValueCancel;
    *text = answer == kModalOK ? dialog.text().detach() : nullptr;
    return noErr;
}

}  // namespace kalmo
