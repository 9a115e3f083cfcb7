// The form offers what the printer has, and says at once what cannot be.
#include "print_dialog/settings_form.h"

#include "print_dialog/shown_window.h"

namespace kalmo::test {
namespace {

PPDDescription Printer() {
    PPDDescription printer;
    printer.papers = {{"Letter", "US Letter", 612, 792, 12, 12, 600, 780},
                      {"A4", "A4", 595, 842, 12, 12, 583, 830}};
    printer.defaultPaper = "A4";
    printer.options = {
        {"KLMColor", "Color", "Color", {{"Color", "Color"}, {"BW", "Black and White"}}},
        {"InputSlot", "Source", "Auto", {{"Auto", "Automatic"}, {"Tray2", "Tray 2"}}}};
    return printer;
}

/// As a person does it, so that the form hears of it.
void Choose(SettingsForm& form, const QString& text) {
    QComboBox* popup = PopupWith(form, text);
    ASSERT_NE(popup, nullptr) << text.toStdString();
    Pick(*popup, text);
}

TEST(SettingsForm, OffersWhatThePrinterHas) {
    SettingsForm form;
    form.setPrinter(Printer(), {});
    EXPECT_EQ(form.paper().keyword, "A4") << "the printer's default";
    EXPECT_EQ(form.settings().inputSlot, "") << "nothing was chosen yet";
    Choose(form, "Black and White");
    Choose(form, "Tray 2");
    Choose(form, "US Letter");
    EXPECT_TRUE(form.isGrey());
    const JobSettings chosen = form.settings();
    EXPECT_EQ(chosen.colorOption + "=" + chosen.colorChoice + chosen.inputSlot, "KLMColor=BWTray2");

    PPDDescription bare = Printer();
    bare.options.clear();
    bare.papers.erase(bare.papers.begin());
    form.setPrinter(bare, form.settings());
    EXPECT_EQ(PopupWith(form, "Tray 2"), nullptr);
    EXPECT_EQ(PopupWith(form, "Black and White"), nullptr);
    EXPECT_EQ(form.settings().inputSlot, "") << "a printer without trays gets no tray";
    EXPECT_EQ(form.settings().colorOption, "");
    EXPECT_EQ(form.settings().paper, "") << "it has no Letter";
    EXPECT_FALSE(form.isGrey());
    form.setPrinter({}, {});
    EXPECT_GT(form.paper().width, 0) << "a queue that says nothing has usual papers";
}

TEST(SettingsForm, ChecksTheRangeWhileItIsTyped) {
    SettingsForm form;
    form.setDocument(5, Orientation::portrait);
    Activate(form);
    auto* text = form.findChild<PagesChoice*>()->findChild<QLineEdit*>();
    text->setFocus();
    QTest::keyClick(text, Qt::Key_1);
    EXPECT_EQ(form.settings().pages, (std::vector<PageRange>{{1, 1}}))
        << "typing chooses the range";
    for (const auto& [typed, valid, tellsWhy] :
         {std::tuple{"2-5", true, false}, {"2-6", false, true}, {"", false, false}}) {
        SCOPED_TRACE(typed);
        QSignalSpy changed(&form, &SettingsForm::changed);
        text->clear();
        QTest::keyClicks(text, typed);
        EXPECT_FALSE(changed.isEmpty());
        EXPECT_EQ(form.isValid(), valid);
        EXPECT_EQ(!text->accessibleDescription().isEmpty(), tellsWhy);
    }
    form.findChild<QSpinBox*>()->setFocus();
    EXPECT_FALSE(text->accessibleDescription().isEmpty()) << "left empty";
    form.setDocument(9, Orientation::portrait);
    EXPECT_TRUE(text->accessibleDescription().contains("9")) << "still empty";
    text->setText("9");
    EXPECT_TRUE(form.isValid()) << "a longer document";
}

}  // namespace
}  // namespace kalmo::test
