#include "paper_output/passcode.h"

#include <sys/random.h>

#include <cerrno>
#include <cstring>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <system_error>

#include "controls/input_limits.h"
#include "paper_output/job_type.h"
#include "settings/dictionary.h"
#include "shell/base/notices.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

/// The system's random source as a generator of the standard library. Throws where there is none:
/// a passcode that can be guessed is worse than none.
struct SystemRandom {
    using result_type = std::uint32_t;
    static constexpr result_type min() { return 0; }
    static constexpr result_type max() { return std::numeric_limits<result_type>::max(); }
    result_type operator()() const {
        result_type number = 0;
        while (getrandom(&number, sizeof number, 0) != sizeof number)
            if (errno != EINTR) throw std::system_error(errno, std::generic_category());
        return number;
    }
};

/// What notices and labels say: the least and the greatest length, and perhaps a passcode.
void ShowPasscodeNotice(CFBundleRef bundle, const NoticeKeys& keys, CFStringRef passcode) {
    const auto least = CreateNumber(kPasscodeMinimumLength);
    const auto most = CreateNumber(kPasscodeMaximumLength);
    const CFTypeRef arguments[] = {least.get(), most.get(), passcode};
    ShowNoticeWithKeys(bundle, keys, arguments, passcode ? 3 : 2);
}

Owned<CFStringRef> LengthText(CFBundleRef bundle) {
    const auto format = CopyText(bundle, CFSTR("Min-Max Digits"));
    const auto least = CreateNumber(kPasscodeMinimumLength);
    const auto most = CreateNumber(kPasscodeMaximumLength);
    return Owned<CFStringRef>::Adopt(
        CFStringCreateWithFormat(kCFAllocatorDefault, format, least.get(), most.get()));
}

/// Those on the printer's keypad.
Owned<CFCharacterSetRef> Digits() {
    return Owned<CFCharacterSetRef>::Adopt(
        CFCharacterSetCreateWithCharactersInString(kCFAllocatorDefault, CFSTR("0123456789")));
}

ControlRef Find(WindowRef window, SInt32 id) {
    ControlRef control = nullptr;
    GetControlByID(window, {'KPDE', id}, &control);
    return control;
}

Owned<CFStringRef> TextOf(ControlRef field) {
    auto text = Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(field));
    return text ? text : Owned<CFStringRef>::Retain(CFSTR(""));
}

}  // namespace

Owned<CFStringRef> MakePasscode() {
    SystemRandom source;
    std::string digits = std::to_string(std::uniform_int_distribution<int>(1000, 9999)(source));
    auto passcode = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(digits));
    explicit_bzero(digits.data(), digits.size());
    return passcode;
}

PasscodePair::PasscodePair(CFBundleRef bundle, WindowRef window)
    : bundle_(bundle),
      passcode_{.label = Find(window, kPasscodeLabelID),
                .field = Find(window, kPasscodeFieldID),
                .length = Find(window, kPasscodeLengthID)},
      confirmation_{.label = Find(window, kConfirmationLabelID),
                    .field = Find(window, kConfirmationFieldID),
                    .length = Find(window, kConfirmationLengthID)} {
    const auto digits = Digits();
    const auto lengthText = LengthText(bundle);
    for (const Row& row : {passcode_, confirmation_}) {
        LimitInputLengthAndCharacters(row.field, kPasscodeMinimumLength, kPasscodeMaximumLength,
                                      digits);
        SetControlTitleWithCFString(row.length, lengthText);
    }
}

void PasscodePair::show(CFStringRef passcode) {
    for (const Row& row : {passcode_, confirmation_})
        SetControlTitleWithCFString(row.field, passcode ? passcode : CFSTR(""));
}

Owned<CFStringRef> PasscodePair::copy() const { return TextOf(passcode_.field); }

CFIndex PasscodePair::length() const { return CFStringGetLength(copy()); }

void PasscodePair::enable(Use use) {
    Enable(passcode_, use != Use::none);
    Enable(confirmation_, use == Use::both);
}

PasscodePair::Use PasscodePair::useByLength() const {
    return length() >= kPasscodeMinimumLength ? Use::both : Use::passcodeOnly;
}

void PasscodePair::focus() { SetKeyboardFocus(passcode_.field); }

void ShowInvalidPasscodeNotice(CFBundleRef bundle) {
    ShowPasscodeNotice(bundle,
                       NoticeKeys{.header = CFSTR("Invalid Secure Print Passcode Header"),
                                  .message = CFSTR("Invalid Secure Print Passcode Message")},
                       nullptr);
}

void PasscodePair::clearConfirmation() {
    SetControlTitleWithCFString(confirmation_.field, CFSTR(""));
}

bool PasscodePair::agrees() {
    if (CFStringCompare(copy(), TextOf(confirmation_.field), kCFCompareCaseInsensitive) ==
        kCFCompareEqualTo)
        return true;
    ShowInvalidPasscodeNotice(bundle_);
    focus();
    return false;
}

void PasscodePair::generate() {
    const auto passcode = MakePasscode();
    show(passcode);
    ShowPasscodeNotice(bundle_,
                       NoticeKeys{.header = CFSTR("Passcode Required Header"),
                                  .message = CFSTR("Passcode Required Message")},
                       passcode);
}

void PasscodePair::Enable(const Row& row, bool on) {
    for (const ControlRef control : {row.label, row.field, row.length})
        on ? EnableControl(control) : DisableControl(control);
}

}  // namespace kalmo
