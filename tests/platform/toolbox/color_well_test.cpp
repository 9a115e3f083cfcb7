#include <cmath>

#include "interface.h"
#include "support/modal_driver.h"
#include "support/window_walk.h"

namespace kalmo::test {
namespace {

/// A well on screen, under a Presence with windows.
class ColorWells : public testing::Test {
protected:
    void SetUp() override {
        InstallPresence(WindowPresence());
        ASSERT_EQ(interface.open(), noErr);
        InstallControlEventHandler(well(), Recorder::Handle, 1, &kHit, &recorder, nullptr);
        interface.windowWidget()->show();
    }
    void TearDown() override { InstallPresence(UnattendedPresence()); }

    [[nodiscard]] ControlRef well() const { return interface.control(1); }
    void press(const ModalDriver::Answer& answer) {
        driver.expect(answer);
        QTest::keyClick(interface.widget(1), Qt::Key_Return);
    }

    Interface interface {
        WindowFile(WidgetText("ColorWell", 1, StringProperty("nameKey", "Color"))),
            "\"Color\" = \"Color\";"
    };
    ModalDriver driver;
    std::string hits;
    Recorder recorder{'h', &hits};
};

TEST_F(ColorWells, KeepTheirColorExactlyAndSayIt) {
    const struct {
        ControlColor set;
        std::vector<float> kept;
        const char* said;
    } rows[] = {
        {{0.3F, 0.7F, 0.1F, 0.75F}, {0.3F, 0.7F, 0.1F, 0.75F}, "#4DB31A, 75 %"},
        {{-1, NAN, 2, 1}, {0, 0, 1, 1}, "#0000FF"},
    };
    for (const auto& row : rows) {
        SetControlColor(well(), row.set);
        const auto [red, green, blue, alpha] = GetControlColor(well());
        EXPECT_EQ((std::vector<float>{red, green, blue, alpha}), row.kept);
        auto* const seen = QAccessible::queryAccessibleInterface(interface.widget(1));
        EXPECT_EQ(seen->text(QAccessible::Description), row.said);
    }
    EXPECT_EQ(WindowFaults(*interface.windowWidget(), Identities::needed),
              std::vector<std::string>());
}

TEST_F(ColorWells, HitForAnotherColorOnly) {
    SetControlColor(well(), {0.3F, 0.7F, 0.1F, 0.5F});
    press([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); });
    press([](QWidget& window) {
        dynamic_cast<QColorDialog&>(window).setCurrentColor(Qt::red);
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    EXPECT_EQ(GetControlColor(well()).red, 0.3F);
    EXPECT_EQ(hits, "");
    press([](QWidget& window) {
        dynamic_cast<QColorDialog&>(window).setCurrentColor(QColor(255, 0, 0, 51));
        QTest::keyClick(&window, Qt::Key_Return);
    });
    EXPECT_EQ(GetControlColor(well()).red + GetControlColor(well()).alpha, 1.2F);
    EXPECT_EQ(hits, "h");
    InstallPresence(UnattendedPresence());
    SimulateControlHit(well());
    EXPECT_TRUE(driver.done());
}

TEST_F(ColorWells, MayGoWhileTheUserChooses) {
    press([this](QWidget&) { DisposeWindow(std::exchange(interface.window, nullptr)); });
    EXPECT_TRUE(driver.done());
    EXPECT_EQ(QApplication::topLevelWidgets(), QWidgetList());
}

}  // namespace
}  // namespace kalmo::test
