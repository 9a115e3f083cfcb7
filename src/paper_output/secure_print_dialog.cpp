#include "paper_output/secure_print_dialog.h"

#include "controls/input_limits.h"
#include "controls/modal_dialog.h"
#include "paper_output/job_type.h"
#include "paper_output/passcode.h"

namespace kalmo {
namespace {

class SecurePrintDialog final : public ModalDialog {
public:
    SecurePrintDialog(CFBundleRef bundle, Owned<CFStringRef>* passcode)
        : ModalDialog(bundle, {.file = CFSTR("SecurePrint"),
                               .window = CFSTR("SecurePrint"),
                               .helpPage = CFSTR("How_to/m_ht_use_Secure_Print.htm"),
                               .picture = 100}),
          passcode_(passcode) {}

private:
    void prepare() override {
        pair_ = PasscodePair(bundle(), window());
        pair_.show(*passcode_);
        pair_.enable(pair_.length() > 0 ? PasscodePair::Use::both
                                        : PasscodePair::Use::passcodeOnly);
    }

    void inputWasChecked(SInt32 id, UInt32) override {
        if (id == kPasscodeFieldID) pair_.enable(pair_.useByLength());
    }

    bool accept() override {
        // An emptied passcode asks for a new one; what was repeated of the old one cannot be edited
        // any more.
        if (pair_.length() == 0) pair_.clearConfirmation();
        if (!pair_.agrees()) return false;
        if (pair_.length() < kPasscodeMinimumLength) pair_.generate();
        *passcode_ = pair_.copy();
        return true;
    }

    [[nodiscard]] Illustration illustration() const override {
        return {"JobType_SecurePrint.gif", "SecurePrintPictureDescription"};
    }

    Owned<CFStringRef>* passcode_;
    PasscodePair pair_;
};

}  // namespace

SInt32 RunModalSecurePrintSetup(CFBundleRef bundle, Owned<CFStringRef>* passcode) {
    return SecurePrintDialog(bundle, passcode).run();
}

}  // namespace kalmo
