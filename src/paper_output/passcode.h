// A passcode typed twice, blind: how the two fields behave, and passcodes made up for the user.
#pragma once

#include "foundation/bundle.h"
#include "toolbox/controls.h"

namespace kalmo {

/// Four decimal digits, each of 1000 to 9999 as likely, from the system's random source.
[[nodiscard]] Owned<CFStringRef> MakePasscode();

/// The controls of the pair in a dialog: each field with a label and the words for its length.
inline constexpr SInt32 kPasscodeLabelID = 110, kPasscodeFieldID = 111, kPasscodeLengthID = 112,
                        kConfirmationLabelID = 120, kConfirmationFieldID = 121,
                        kConfirmationLengthID = 122;

/// Says how long a passcode is, and that it is entered the same twice.
void ShowInvalidPasscodeNotice(CFBundleRef bundle);

class PasscodePair final {
public:
    PasscodePair() = default;
    /// Finds the controls in `window`, limits what may be typed and says how long it may be.
    PasscodePair(CFBundleRef bundle, WindowRef window);

    /// In both fields; null empties them.
    void show(CFStringRef passcode);
    /// Never null.
    [[nodiscard]] Owned<CFStringRef> copy() const;
    [[nodiscard]] CFIndex length() const;

    enum class Use { none, passcodeOnly, both };
    void enable(Use use);
    /// Both once the passcode is long enough.
    [[nodiscard]] Use useByLength() const;
    void focus();
    /// What was repeated of a passcode that is gone.
    void clearConfirmation();

    /// False, after a notice, when the fields differ.
    [[nodiscard]] bool agrees();
    /// Puts a new passcode into both fields and tells it.
    void generate();

private:
    struct Row {
        ControlRef label = nullptr, field = nullptr, length = nullptr;
    };
    static void Enable(const Row& row, bool on);

    CFBundleRef bundle_ = nullptr;  // lent
    Row passcode_, confirmation_;
};

}  // namespace kalmo
