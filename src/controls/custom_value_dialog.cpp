#include "controls/custom_value_dialog.h"

#include <iterator>

#include "controls/input_limits.h"
#include "controls/nib_holders.h"
#include "shell/base/help.h"
#include "shell/base/panel_interface.h"

namespace kalmo {
namespace {

constexpr ControlID kTextField = {'KPDE', 123456};
constexpr UInt32 kHelpCommand = 'Khlp';

struct CustomValueDialog {
    CFBundleRef bundle = nullptr;  // lent
    WindowHolder window;
    ControlRef field = nullptr, okButton = nullptr;
};

void FollowInput(CustomValueDialog& dialog, UInt32 check) {
    if (check == kEventInputLongEnough)
        EnableControl(dialog.okButton);
    else
        DisableControl(dialog.okButton);
}

/// OK and Cancel end the window's loop by themselves.
OSStatus CustomValueEventHandler(EventHandlerCallRef, EventRef event, void* userData) {
    return WithoutExceptions(eventNotHandledErr, [&]() -> OSStatus {
        auto& dialog = *static_cast<CustomValueDialog*>(userData);
        if (GetEventClass(event) == kEventClassInputCheck) {
            FollowInput(dialog, GetEventKind(event));
            return noErr;
        }
        if (GetEventCommand(event) != kHelpCommand) return eventNotHandledErr;
        return DisplayHelp(dialog.bundle, CFSTR("image_options/db_custom_color_d.htm"), nullptr);
    });
}

OSStatus OpenDialog(CustomValueDialog* dialog) {
    NibHolder nib;
    OSStatus status = OpenNib(dialog->bundle, CFSTR("Utilities"), &nib);
    if (status == noErr) status = OpenNibWindow(nib, CFSTR("CustomValue"), &dialog->window);
    if (status != noErr) return status;
    GetWindowDefaultButton(dialog->window.get(), &dialog->okButton);
    return GetControlByID(dialog->window.get(), kTextField, &dialog->field);
}

void InstallHandler(CustomValueDialog& dialog) {
    constexpr EventTypeSpec kEvents[] = {{kEventClassInputCheck, kEventInputEmpty},
                                         {kEventClassInputCheck, kEventInputTooShort},
                                         {kEventClassInputCheck, kEventInputLongEnough},
                                         {kEventClassCommand, kEventCommandProcess}};
    InstallWindowEventHandler(dialog.window.get(), CustomValueEventHandler, std::size(kEvents),
                              kEvents, &dialog, nullptr);
}

}  // namespace

OSStatus RunModalCustomValueDialog(CFBundleRef bundle, SInt32 minimumLength, SInt32 maximumLength,
                                   CFStringRef* text, SInt32* button) {
    if (!text || !button) return paramErr;
    CustomValueDialog dialog{.bundle = bundle};
    if (const OSStatus status = OpenDialog(&dialog); status != noErr) return status;
    LimitInputLengthAndCharacters(dialog.field, minimumLength, maximumLength, nullptr);
    if (*text) SetControlTitleWithCFString(dialog.field, *text);
    InstallHandler(dialog);
    FollowInput(dialog, CheckInput(dialog.field));
    SetKeyboardFocus(dialog.field);

    const SInt32 answer = RunAppModalLoopForWindow(dialog.window.get(), nullptr);
    *button = answer == kModalOK ? kCustomValueOK : kCustomValueCancel;
    *text = answer == kModalOK ? CopyControlTitleAsCFString(dialog.field) : nullptr;
    return noErr;
}

}  // namespace kalmo
