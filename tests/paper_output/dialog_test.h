// A dialog of the panel, driven through its controls.
#pragma once

#include "shell/base/plugin_bundle.h"
#include "support/pane_dialog.h"

namespace kalmo::test {

/// With the product's own bundle, and a host that shows dialogs and records notices.
struct DialogTest : testing::Test {
    static constexpr SInt32 kOK = 901, kCancel = 902;

    DialogTest() {
        Presence presence = UnattendedPresence();
        presence.modalLoopsRun = true;
        presence.notice = [this](CFStringRef, CFStringRef message) {
            notices.push_back(CFStringToUTF8(message));
        };
        presence.alert = [this](const AlertTexts& texts) {
            questions.push_back(CFStringToUTF8(texts.message));
            return agrees;
        };
        InstallPresence(presence);
        gBundle = bundle;
    }
    ~DialogTest() override { gBundle = nullptr; }

    template <typename Widget = QWidget>
    static Widget& Control(QWidget& window, SInt32 id) {
        return *FindControl<Widget>(window, 'KPDE', id);
    }
    static void Press(QWidget& window, SInt32 id) {
        QWidget& button = Control(window, id);
        // A check box is hit on its words, not anywhere in its row.
        QTest::mouseClick(&button, Qt::LeftButton, {}, {8, button.height() / 2});
    }
    /// In place of what the field holds.
    static void Type(QWidget& window, SInt32 id, const char* text) {
        auto& field = Control<QLineEdit>(window, id);
        field.setFocus();
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Backspace);
        QTest::keyClicks(&field, text);
    }
    static void Choose(QWidget& window, SInt32 id, const QString& text) {
        Pick(Control<QComboBox>(window, id), text);
    }
    static bool Enabled(QWidget& window, SInt32 id) { return Control(window, id).isEnabled(); }
    static std::string Text(QWidget& window, SInt32 id) {
        return Control<QLineEdit>(window, id).text().toStdString();
    }

    Owned<CFBundleRef> bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    /// What was told and asked, and whether the default button answers.
    std::vector<std::string> notices, questions;
    bool agrees = false;
    ModalDriver driver;
};

}  // namespace kalmo::test
