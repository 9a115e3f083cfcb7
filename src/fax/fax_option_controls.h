// The controls of the fax setup that show the fax options, and what each of them enables.
#pragma once

#include "fax/length_alert.h"
#include "foundation/bundle.h"
#include "toolbox/controls.h"

namespace kalmo {

/// Ids of the controls, of the signature 'KPDE'.
inline constexpr SInt32 kCoverMenuID = 301, kCoverSetupID = 302, kNotesLabelID = 303,
                        kNotesID = 304, kConfirmationID = 401, kSendSpeedID = 402,
                        kResolutionID = 403, kSendNowID = 404, kSendAtID = 405, kSendTimeID = 406,
                        kPrefixBoxID = 407, kPrefixID = 408, kCreditCardBoxID = 409,
                        kCreditCardID = 410;

/// Window and bundle are lent.
class FaxOptionControls final {
public:
    FaxOptionControls() = default;
    FaxOptionControls(CFBundleRef bundle, WindowRef window);

    void SyncToUI(CFDictionaryRef options) const;
    /// `now`: seconds since the start of 1904. Keys that no control shows stay.
    void SyncFromUI(CFMutableDictionaryRef options, SInt64 now) const;

    /// Each puts the focus where the user goes on, when asked to.
    enum class Focus { stays, follows };
    void UpdateSendTimeControls(Focus focus) const;
    void UpdateDialingPrefixControls(Focus focus) const;
    void UpdateCreditCardControls(Focus focus) const;
    /// Whether there is a cover sheet to set up.
    bool UpdateCoverSheetControls(Focus focus) const;

    [[nodiscard]] Owned<CFStringRef> notes() const;
    /// As the boxes and fields are, and as they should be.
    [[nodiscard]] DialingPart dialingPrefix() const;
    [[nodiscard]] DialingPart creditCard() const;
    void setDialingPrefix(const DialingPart& part) const;
    void setCreditCard(const DialingPart& part) const;

private:
    [[nodiscard]] ControlRef control(SInt32 id) const;
    void fillMenus() const;
    void enable(SInt32 id, bool on) const;
    bool enableIfChosen(SInt32 box, SInt32 field, Focus focus) const;
    [[nodiscard]] DialingPart partOf(SInt32 box, SInt32 field) const;
    void setPart(SInt32 box, SInt32 field, const DialingPart& part) const;

    CFBundleRef bundle_ = nullptr;
    WindowRef window_ = nullptr;
};

/// The chosen moment, a day later when it lies before now: a day and no more, so that it may still
/// lie before now.
[[nodiscard]] SInt64 FaxSendTime(SInt64 chosen, SInt64 now);

}  // namespace kalmo
