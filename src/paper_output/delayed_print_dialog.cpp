#include "paper_output/delayed_print_dialog.h"

#include "controls/modal_dialog.h"
#include "system/clock.h"

namespace kalmo {
namespace {

constexpr SInt64 kSecondsPerDay = 86'400;
constexpr SInt32 kTimeID = 103;

/// Also of moments before 1904.
SInt64 TimeOfDay(SInt64 moment) {
    return (moment % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay;
}

class DelayedPrintDialog final : public ModalDialog {
public:
    DelayedPrintDialog(CFBundleRef bundle, SInt64* time)
        : ModalDialog(bundle, {.file = CFSTR("DelayedPrint"),
                               .window = CFSTR("DelayedPrint"),
                               .helpPage = CFSTR("How_to/m_ht_use_Delayed_Print.htm"),
                               .picture = 100}),
          time_(time) {}

private:
    void prepare() override { SetControlDateTime(control(kTimeID), *time_); }

    bool accept() override {
        *time_ = NextReleaseTime(GetLongDateTime(), GetControlDateTime(control(kTimeID)));
        return true;
    }

    [[nodiscard]] Illustration illustration() const override {
        return {"JobType_DelayPrint.gif", "DelayedPrintPictureDescription"};
    }

    SInt64* time_;
};

}  // namespace

SInt64 NextReleaseTime(SInt64 now, SInt64 chosen) {
    const SInt64 today = now - TimeOfDay(now) + TimeOfDay(chosen);
    return today < now ? today + kSecondsPerDay : today;
}

SInt32 RunModalDelayedPrintSetup(CFBundleRef bundle, SInt64* time) {
    return DelayedPrintDialog(bundle, time).run();
}

}  // namespace kalmo
