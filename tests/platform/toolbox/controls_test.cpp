#include <QComboBox>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <limits>

#include "interface.h"
#include "toolbox/menus.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kLeast = std::numeric_limits<SInt32>::min();
constexpr SInt32 kMost = std::numeric_limits<SInt32>::max();

TEST(Controls, ValuesStayWithinTheirBounds) {
    QSpinBox spin;
    QCheckBox check;
    QComboBox popup;
    popup.addItems({"one", "two", "three"});
    Interface interface(WindowFile(WidgetText("SpinArrows", 1)));
    ASSERT_EQ(interface.open(), noErr);
    QWidget* const arrows = interface.widget(1);
    const struct {
        const char* why;
        QWidget* widget;
        SInt32 minimum, maximum, value, result;
    } cases[] = {
        {"spin below", &spin, -5, 5, kLeast, -5},
        {"spin above", &spin, -5, 5, kMost, 5},
        {"spin, the widest bounds", &spin, kLeast, kMost, kLeast, kLeast},
        {"arrows, the widest bounds", arrows, kLeast, kMost, kLeast, kLeast},
        {"arrows above", arrows, kLeast, -3, kMost, -3},
        {"check box", &check, 0, 1, 9, 1},
        {"popup below its minimum", &popup, 1, 3, -1, 1},
        {"popup above its maximum", &popup, 1, 2, 3, 2},
        {"popup beyond its items but not its maximum", &popup, 0, 9, 7, 0},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        const ControlRef control = ControlFromWidget(row.widget);
        std::string record;
        Recorder recorder{'h', &record};
        EventHandlerRef handler = nullptr;
        InstallControlEventHandler(control, Recorder::Handle, 1, &kHit, &recorder, &handler);
        SetControl32BitMaximum(control, row.maximum);
        SetControl32BitMinimum(control, row.minimum);
        SetControl32BitValue(control, row.value);
        EXPECT_EQ(GetControl32BitValue(control), row.result);
        EXPECT_EQ(record, "");
        RemoveEventHandler(handler);
    }
}

TEST(Controls, UsersChangesAreHits) {
    QSpinBox spin;
    QSlider slider;
    QComboBox popup;
    popup.addItems({"one", "two"});
    std::string record;
    Recorder recorder{'h', &record};
    for (QWidget* widget : std::initializer_list<QWidget*>{&spin, &slider, &popup}) {
        SCOPED_TRACE(widget->metaObject()->className());
        InstallControlEventHandler(ControlFromWidget(widget), Recorder::Handle, 1, &kHit, &recorder,
                                   nullptr);
        record.clear();
        QTest::keyClick(widget, widget == &popup ? Qt::Key_Down : Qt::Key_Up);
        EXPECT_EQ(record, "h");
    }
}

TEST(Controls, InactiveOnesRememberWhetherTheyAreEnabled) {
    QWidget window;
    auto* const pane = new QWidget(&window);
    const ControlRef parent = ControlFromWidget(pane);
    const ControlRef box = ControlFromWidget(new QCheckBox(pane));
    DisableControl(parent);
    DeactivateControl(parent);
    DeactivateControl(parent);
    EnableControl(parent);
    EXPECT_FALSE(pane->isEnabled()) << "still inactive";
    EXPECT_TRUE(IsControlEnabled(box)) << "its own state";
    EXPECT_FALSE(WidgetFromControl(box)->isEnabled());
    ActivateControl(parent);
    EXPECT_TRUE(WidgetFromControl(box)->isEnabled());
}

TEST(Controls, VisibilityIsTheControlsOwn) {
    QWidget window;
    const ControlRef pane = ControlFromWidget(new QWidget(&window));
    const ControlRef box = ControlFromWidget(new QCheckBox(WidgetFromControl(pane)));
    EXPECT_TRUE(IsControlVisible(box)) << "never shown, never hidden";
    HideControl(pane);
    EXPECT_TRUE(IsControlVisible(box));
    EXPECT_FALSE(IsControlVisible(pane));
    ShowControl(pane);
    EXPECT_TRUE(IsControlVisible(pane)) << "although the window is not on screen";
}

TEST(Controls, IdentityIsFoundAndFollowsChanges) {
    QWidget window;
    const WindowRef ref = WindowFromWidget(&window);
    auto* const box = new QCheckBox(&window);
    ControlRef found = nullptr;
    SetControlID(ControlFromWidget(box), {'KPDE', 1});
    EXPECT_EQ(GetControlByID(ref, {'Kshl', 1}, &found), controlNotFoundErr);
    SetControlID(ControlFromWidget(box), {'KPDE', -2});
    EXPECT_EQ(GetControlByID(ref, {'KPDE', 1}, &found), controlNotFoundErr);
    EXPECT_EQ(GetControlByID(ref, {'KPDE', -2}, &found), noErr);
    DisposeControl(found);
    EXPECT_EQ(GetControlByID(ref, {'KPDE', -2}, &found), controlNotFoundErr);
}

}  // namespace
}  // namespace kalmo::test
