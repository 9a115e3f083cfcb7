// A modal dialog from an interface file: its controls by id, its picture, its OK, Cancel and Help.
//
// What a dialog holds comes in through its constructor, is put into the controls by prepare() and
// taken back by accept(). Nothing thrown leaves the event handler: OK then keeps the dialog open.
#pragma once

#include <string>

#include "controls/nib_holders.h"
#include "toolbox/events.h"

namespace kalmo {

/// The signature of a dialog's controls, and the command of its Help button.
inline constexpr OSType kDialogSignature = 'KPDE';
inline constexpr UInt32 kHelpCommand = 'Khlp';

class ModalDialog {
public:
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;
    virtual ~ModalDialog() { RemoveEventHandler(handler_); }

    /// kModalOK once accept() agreed, kModalCancel, or the failure of the interface file.
    [[nodiscard]] SInt32 run();

protected:
    /// Lent names: the interface file, the window in it, the help page; 0: no picture; the key of
    /// the window's title, null: the interface file's own, and its table, null: "Localizable".
    struct Source {
        CFStringRef file, window, helpPage;
        SInt32 picture = 0;
        CFStringRef titleKey = nullptr, titleTable = nullptr;
    };
    /// A picture file of the bundle, and the key of the words that say the same.
    struct Illustration {
        std::string file;
        const char* descriptionKey = nullptr;
    };

    ModalDialog(CFBundleRef bundle, const Source& source) : bundle_(bundle), source_(source) {}

    [[nodiscard]] CFBundleRef bundle() const { return bundle_; }
    [[nodiscard]] WindowRef window() const { return window_.get(); }
    /// Null when there is none.
    [[nodiscard]] ControlRef control(SInt32 id) const;
    /// Of a check box or radio button.
    [[nodiscard]] bool isOn(SInt32 id) const { return GetControl32BitValue(control(id)) == 1; }
    void enable(SInt32 id, bool on) const {
        on ? EnableControl(control(id)) : DisableControl(control(id));
    }
    /// Draws the picture anew and describes it.
    void updatePicture();

    /// Fills the controls, before the window is shown.
    virtual void prepare() = 0;
    /// False keeps the dialog open.
    [[nodiscard]] virtual bool accept() = 0;
    virtual void controlWasHit(SInt32 /*id*/) {}
    /// The text of a field with input limits was changed; `state` is an event of input_limits.h.
    virtual void inputWasChecked(SInt32 /*id*/, UInt32 /*state*/) {}
    /// The user has changed a spin control: the arrows' id.
    virtual void numberWasChanged(SInt32 /*arrows*/) {}
    /// A command that is neither OK, Cancel nor Help; eventNotHandledErr: it is not wanted.
    virtual OSStatus commandWasSent(UInt32 /*command*/, EventRef /*event*/) {
        return eventNotHandledErr;
    }
    /// The user has changed the text of a field, which holds it by now.
    virtual void textWasTyped(SInt32 /*id*/) {}
    /// An event of list_view.h.
    virtual void listWasUsed(SInt32 /*id*/, UInt32 /*kind*/) {}
    /// A mouse event of a picture control; eventNotHandledErr: it is not wanted.
    virtual OSStatus mouseWasUsed(SInt32 /*id*/, EventRef /*event*/) { return eventNotHandledErr; }
    /// Draws a picture control: the illustration, unless a dialog draws its own.
    virtual OSStatus draw(SInt32 id, EventRef event);
    /// What the picture shows now.
    [[nodiscard]] virtual Illustration illustration() const { return {}; }

private:
    [[nodiscard]] OSStatus open();
    OSStatus handle(EventHandlerCallRef next, EventRef event);
    OSStatus obey(EventRef event);
    OSStatus takeText(EventHandlerCallRef next, EventRef event);
    static OSStatus HandleEvent(EventHandlerCallRef next, EventRef event, void* dialog);

    CFBundleRef bundle_;  // lent
    Source source_;
    WindowHolder window_;
    EventHandlerRef handler_ = nullptr;
};

}  // namespace kalmo
