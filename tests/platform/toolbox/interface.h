// Interface files written by a test, and the windows made from them.
#pragma once

#include "toolbox/windows.h"

#include "support/qt_test.h"

namespace kalmo::test {

/// The window "Window" of a bundle whose Resources hold "Panel.ui" with `ui` and a table
/// "Localizable".
class Interface {
public:
    explicit Interface(const std::string& ui, const std::string& texts = {})
        : bundle_(Owned<CFBundleRef>::Adopt(OpenBundle(WriteBundle(
              MakeFolder("interface"), "Test", "test.interface",
              {{"Resources/Panel.ui", ui}, {"Resources/en.lproj/Localizable.strings", texts}})))) {
        EXPECT_EQ(CreateNibReferenceWithCFBundle(bundle_, CFSTR("Panel"), &nib_), noErr);
        EXPECT_EQ(CreateWindowFromNib(nib_, CFSTR("Window"), &window), noErr);
    }
    ~Interface() {
        DisposeWindow(window);
        DisposeNibReference(nib_);
    }

    [[nodiscard]] ControlRef control(SInt32 id) const {
        ControlRef found = nullptr;
        return GetControlByID(window, {'KPDE', id}, &found) == noErr ? found : nullptr;
    }
    template <typename Widget = QWidget>
    [[nodiscard]] Widget* widget(SInt32 id) const {
        return qobject_cast<Widget*>(WidgetFromControl(control(id)));
    }
    [[nodiscard]] QWidget* windowWidget() const { return WidgetFromWindow(window); }

    WindowRef window = nullptr;

private:
    Owned<CFBundleRef> bundle_;
    IBNibRef nib_ = nullptr;
};

/// A file with one window "Window" that holds `content`.
inline std::string WindowFile(const std::string& content, const std::string& type = "QWidget") {
    return "<ui version=\"4.0\"><class>Panel</class><widget class=\"QWidget\" name=\"Panel\">"
           "<widget class=\"" +
           type + "\" name=\"Window\">" + content + "</widget></widget></ui>";
}

/// A widget with the identity ('KPDE', `id`); `more` are further properties and children.
inline std::string WidgetText(const std::string& type, SInt32 id, const std::string& more = {}) {
    const std::string number = std::to_string(id);
    return "<widget class=\"" + type + "\" name=\"w" + number +
           "\"><property name=\"controlSignature\" stdset=\"0\"><string>KPDE</string></property>"
           "<property name=\"controlID\" stdset=\"0\"><number>" +
           number + "</number></property>" + more + "</widget>";
}

inline std::string Geometry(int x, int y, int width, int height) {
    return "<property name=\"geometry\"><rect><x>" + std::to_string(x) + "</x><y>" +
           std::to_string(y) + "</y><width>" + std::to_string(width) + "</width><height>" +
           std::to_string(height) + "</height></rect></property>";
}

/// Events that reached a handler, one letter each, and its answer.
struct Recorder {
    char letter = '?';
    std::string* record = nullptr;
    OSStatus answer = eventNotHandledErr;

    static OSStatus Handle(EventHandlerCallRef, EventRef, void* self) {
        const auto* recorder = static_cast<const Recorder*>(self);
        recorder->record->push_back(recorder->letter);
        return recorder->answer;
    }
};

inline constexpr EventTypeSpec kHit = {kEventClassControl, kEventControlHit};
inline constexpr EventTypeSpec kCommand = {kEventClassCommand, kEventCommandProcess};

/// The events of one kind that reach a control, one 'h' each.
struct Heard {
    explicit Heard(ControlRef control, const EventTypeSpec& type = kHit) {
        InstallControlEventHandler(control, Recorder::Handle, 1, &type, &recorder, nullptr);
    }
    std::string record;
    Recorder recorder{'h', &record};
};

}  // namespace kalmo::test
