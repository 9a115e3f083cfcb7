#include "controls/modal_dialog.h"

#include <iterator>

#include "controls/input_limits.h"
#include "controls/panel_layout.h"
#include "controls/pictures.h"
#include "controls/spin_control.h"
#include "shell/base/help.h"
#include "shell/base/panel_interface.h"
#include "shell/base/texts.h"
#include "toolbox/list_view.h"

namespace kalmo {
namespace {

constexpr UInt32 kCommandOK = 'ok  ', kCommandCancel = 'not!';
constexpr EventTypeSpec kEvents[] = {
    {kEventClassCommand, kEventCommandProcess},   {kEventClassControl, kEventControlHit},
    {kEventClassControl, kEventControlDraw},      {kEventClassInputCheck, kEventInputEmpty},
    {kEventClassInputCheck, kEventInputTooShort}, {kEventClassInputCheck, kEventInputLongEnough},
    {kEventClassSpin, kEventSpinChanged},         {kEventClassMouse, kEventMouseDown},
    {kEventClassMouse, kEventMouseDragged},       {kEventClassMouse, kEventMouseUp},
    {kEventClassTextInput, kEventTextInput},      {kEventClassList, kEventListSelectionChanged},
    {kEventClassList, kEventListItemOpened},      {kEventClassList, kEventListSortChanged},
    {kEventClassList, kEventListGroundOpened},
};

}  // namespace

SInt32 ModalDialog::run() {
    if (const OSStatus status = open(); status != noErr) return status;
    prepare();
    updatePicture();
    return RunAppModalLoopForWindow(window(), nullptr);
}

OSStatus ModalDialog::open() {
    NibHolder nib;
    OSStatus status = OpenNib(bundle_, source_.file, &nib);
    if (status == noErr) status = OpenNibWindow(nib, source_.window, &window_);
    if (status != noErr) return status;
    if (source_.titleKey)
        SetWindowTitleWithCFString(window(),
                                   CopyText(bundle_, source_.titleKey, source_.titleTable));
    return InstallWindowEventHandler(window(), HandleEvent, std::size(kEvents), kEvents, this,
                                     &handler_);
}

ControlRef ModalDialog::control(SInt32 id) const {
    ControlRef found = nullptr;
    GetControlByID(window(), {kDialogSignature, id}, &found);
    return found;
}

void ModalDialog::updatePicture() {
    const Illustration shown = illustration();
    if (!shown.descriptionKey) return;
    const ControlRef picture = control(source_.picture);
    SetControlAccessibleDescription(picture,
                                    CopyText(bundle_, CFStringMakeConstant(shown.descriptionKey)));
    SetControlNeedsDisplay(picture);
}

OSStatus ModalDialog::HandleEvent(EventHandlerCallRef next, EventRef event, void* dialog) {
    return WithoutExceptions(
        noErr, [&] { return static_cast<ModalDialog*>(dialog)->handle(next, event); });
}

OSStatus ModalDialog::handle(EventHandlerCallRef next, EventRef event) {
    const SInt32 id = IDOfHit(event);
    switch (GetEventClass(event)) {
        case kEventClassCommand:
            return obey(event);
        case kEventClassInputCheck:
            return inputWasChecked(id, GetEventKind(event)), noErr;
        case kEventClassSpin:
            return numberWasChanged(id), noErr;
        case kEventClassMouse:
            return mouseWasUsed(id, event);
        case kEventClassTextInput:
            return takeText(next, event);
        case kEventClassList:
            return listWasUsed(id, GetEventKind(event)), noErr;
        default:
            if (GetEventKind(event) == kEventControlDraw) return draw(id, event);
            return controlWasHit(id), eventNotHandledErr;
    }
}

/// The standard behaviour of OK and Cancel ends the loop.
OSStatus ModalDialog::obey(EventRef event) {
    const UInt32 command = GetEventCommand(event);
    if (command == kHelpCommand) {
        DisplayHelp(bundle_, source_.helpPage, nullptr);
        return noErr;
    }
    if (command == kCommandOK) return accept() ? eventNotHandledErr : noErr;
    return command == kCommandCancel ? eventNotHandledErr : commandWasSent(command, event);
}

/// Once the field has taken the text over.
OSStatus ModalDialog::takeText(EventHandlerCallRef next, EventRef event) {
    const SInt32 id = IDOfHit(event);
    const OSStatus status = CallNextEventHandler(next, event);
    textWasTyped(id);
    return status;
}

OSStatus ModalDialog::draw(SInt32 id, EventRef event) {
    const Illustration shown = illustration();
    if (shown.file.empty() || id != source_.picture) return eventNotHandledErr;
    return DrawImage(event, Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(shown.file)));
}

}  // namespace kalmo
