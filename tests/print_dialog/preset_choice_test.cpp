// The row of presets in the window, used as people use it.
#include "print_dialog/preset_choice.h"

#include <QMenu>

#include "print_dialog/preset_name_dialog.h"
#include "print_dialog/shown_window.h"
#include "support/ticket_files.h"

namespace kalmo::test {
namespace {

struct PresetChoiceTest : testing::Test, WindowInFront {
    PresetChoiceTest() {
        setenv("XDG_CONFIG_HOME", MakeFolder("config").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", site_.c_str(), 1);
        std::filesystem::create_directories(site_ / "kalmo-print/presets");
        WriteFile(site_ / "kalmo-print/presets/Site.plist",
                  TicketFile("", "Duplex=DuplexTumble XFold=Letter"));
    }
    void open(const std::string& preset = {}) {
        CommandLine commandLine = SampleJob();
        commandLine.preset = preset;
        WindowInFront::open(commandLine);
        row()->load({});
        EXPECT_TRUE(Wait([this] { return presets()->findText("Site") > 0; }));
    }
    PresetChoice* row() const { return window_->findChild<PresetChoice*>(); }
    QString shown() const { return presets()->currentText(); }
    QAction* command(int item) const {
        return row()->findChildren<QToolButton*>()[1]->menu()->actions()[item];
    }
    /// In the dialog for a name.
    void typeName(const QString& name) {
        driver_.expect([this, name](QWidget& dialog) {
            auto* field = dialog.findChild<QLineEdit*>();
            field->setText(" ");
            static_cast<PresetNameDialog&>(dialog).accept();
            EXPECT_TRUE(field->accessibleDescription().contains("Type a name"));
            EXPECT_TRUE(field->hasFocus());
            field->setText(name);
            static_cast<PresetNameDialog&>(dialog).accept();
            EXPECT_TRUE(Wait([&] { return !dialog.isVisible(); }));
        });
    }

    std::filesystem::path site_ = MakeFolder("site");
    ModalDriver driver_;
};

TEST_F(PresetChoiceTest, SavesAppliesReplacesRenamesAndDeletes) {
    open();
    EXPECT_EQ(shown(), "Printer’s defaults");
    copies()->setValue(7);
    Pick(*sides(), sides()->itemText(1));
    typeName("Mine");
    command(0)->trigger();
    ASSERT_TRUE(Wait([this] { return shown() == "Mine"; }));
    QTest::mouseClick(row()->findChild<QToolButton*>(), Qt::LeftButton);
    EXPECT_EQ(shown(), "Printer’s defaults");
    EXPECT_EQ(sides()->currentIndex(), 0);
    EXPECT_EQ(copies()->value(), 1);
    Pick(*presets(), "Mine");
    EXPECT_EQ(sides()->currentIndex(), 1);
    EXPECT_EQ(copies()->value(), 7);
    copies()->setValue(9);
    for (const auto& [answer, expected] : {std::pair{"Cancel", 7}, {"Replace", 9}}) {
        driver_.expect([this, answer = answer](QWidget& dialog) {
            driver_.expectPress(answer);
            dialog.findChild<QLineEdit*>()->setText("Mine");
            static_cast<PresetNameDialog&>(dialog).accept();
            const bool closes = std::string(answer) == "Replace";
            EXPECT_EQ(QTest::qWaitFor([&] { return !dialog.isVisible(); }, closes ? 5000 : 100),
                      closes);
            dialog.close();
        });
        command(0)->trigger();
        EXPECT_TRUE(Contains(ReadFile(ListPresets().front().file),
                             "<integer>" + std::to_string(expected) + "</integer>"));
    }
}

TEST_F(PresetChoiceTest, RenamesAndDeletesTheUsersOwnOnly) {
    ASSERT_TRUE(SavePreset("Mine", TicketFile("")));
    open("Site");
    EXPECT_EQ(shown(), "Site");
    EXPECT_EQ(sides()->currentIndex(), 2);
    EXPECT_TRUE(fault().contains("XFold: Letter"));
    EXPECT_FALSE(command(1)->isEnabled() || command(2)->isEnabled()) << "it is the site's";
    Pick(*presets(), "Mine");
    typeName("Yours");
    command(1)->trigger();
    ASSERT_TRUE(Wait([this] { return shown() == "Yours"; }));
    driver_.expectPress("Cancel");
    command(2)->trigger();
    EXPECT_EQ(ListPresets().size(), 2u);
    driver_.expectPress("Delete");
    command(2)->trigger();
    EXPECT_TRUE(Wait([this] { return presets()->findText("Yours") < 0; }));
    EXPECT_EQ(shown(), "") << "settings that are stored nowhere";
}

}  // namespace
}  // namespace kalmo::test
