#include "interface.h"
#include "toolbox/menus.h"

namespace kalmo::test {
namespace {

/// A check box in a pane in a window, with handlers a (old) and b on the box, c on the pane, d on
/// the window.
struct Events : testing::Test {
    void SetUp() override {
        auto* recorder = recorders;
        for (QWidget* where : std::initializer_list<QWidget*>{box, box, pane, window.get()})
            Install(ControlFromWidget(where), *recorder++);
    }

    static EventHandlerRef Install(ControlRef where, Recorder& recorder) {
        const EventTypeSpec types[] = {kHit, kCommand};
        EventHandlerRef handler = nullptr;
        InstallControlEventHandler(where, Recorder::Handle, 2, types, &recorder, &handler);
        return handler;
    }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QWidget* pane = new QWidget(window.get());
    QCheckBox* box = new QCheckBox(pane);
    ControlRef control = ControlFromWidget(box);
    std::string record;
    Recorder recorders[4] = {{'a', &record}, {'b', &record}, {'c', &record}, {'d', &record}};
};

TEST_F(Events, HitClimbsFromTheNewestHandlerToTheWindowUntilAnAnswer) {
    SetControl32BitValue(control, 0);
    EXPECT_EQ(record, "") << "a change by code sends nothing";
    SimulateControlHit(control);
    EXPECT_EQ(record, "bacd");
    EXPECT_EQ(GetControl32BitValue(control), 1) << "the value has changed before";
    recorders[2].answer = -12345678;
    EXPECT_EQ(SendCommandFromControl(control, 'ok  '), -12345678);
    EXPECT_EQ(record, "bacdbac");
    EXPECT_EQ(SendCommandToWindow(WindowFromWidget(window.get()), 'ok  '), eventNotHandledErr);
    DeactivateControl(control);
    SimulateControlHit(control);
    EXPECT_EQ(record, "bacdbacd") << "nobody can press an inactive control";
}

TEST_F(Events, HandlerMayRemoveItselfAndOthersOnTheWay) {
    struct Removing {
        EventHandlerRef self = nullptr, other = nullptr;
        std::string* record = nullptr;
        static OSStatus Handle(EventHandlerCallRef, EventRef, void* data) {
            const auto* removing = static_cast<Removing*>(data);
            removing->record->push_back('r');
            RemoveEventHandler(removing->self);
            RemoveEventHandler(removing->other);
            RemoveEventHandler(removing->self);
            return eventNotHandledErr;
        }
    } removing{nullptr, nullptr, &record};
    Recorder late{'z', &record};
    removing.other = Install(control, late);
    InstallControlEventHandler(control, Removing::Handle, 1, &kHit, &removing, &removing.self);
    SimulateControlHit(control);
    SimulateControlHit(control);
    EXPECT_EQ(record, "rbacdbacd");
}

TEST_F(Events, ControlsAndWindowsMayGoInsideAHandler) {
    const auto disposes = [](EventHandlerCallRef, EventRef event, void* data) -> OSStatus {
        DisposeControl(GetEventControl(event));
        static_cast<std::string*>(data)->push_back('x');
        return eventNotHandledErr;
    };
    const QPointer<QWidget> gone = box;
    InstallControlEventHandler(control, disposes, 1, &kHit, &record, nullptr);
    QMetaObject::invokeMethod(box, "click");
    EXPECT_EQ(record, "xcd") << "the control's own handlers end with it";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(gone, nullptr);
}

}  // namespace
}  // namespace kalmo::test
