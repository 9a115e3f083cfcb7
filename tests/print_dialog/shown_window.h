// The print window as a user has it in front.
#pragma once

#include "print_dialog/print_window.h"
#include "print_dialog/sample_documents.h"

namespace kalmo::test {

/// A document for the sample printer that is printed into a fresh folder.
inline CommandLine SampleJob(std::size_t pages = 1) {
    CommandLine job;
    job.output = MakeFolder("out").string();
    job.document = WriteDocument(std::vector(pages, kPortraitPage)).string();
    job.ppd = SamplePPD("kalmo-office-color").string();
    return job;
}
inline std::unique_ptr<PrintWindow> ShowWindow(const CommandLine& commandLine) {
    auto window = std::make_unique<PrintWindow>(commandLine);
    EXPECT_EQ(window->prepare(), kExitDone);
    Activate(*window);
    return window;
}
/// Null when there is none.
inline QPushButton* ButtonWith(const QWidget& window, const QString& text) {
    for (auto* button : window.findChildren<QPushButton*>())
        if (button->text() == text) return button;
    return nullptr;
}
/// The popup that has this item; null when none has it.
inline QComboBox* PopupWith(const QWidget& window, const QString& item) {
    for (auto* popup : window.findChildren<QComboBox*>())
        if (popup->findText(item) >= 0 && !popup->isHidden()) return popup;
    return nullptr;
}

/// What tests do with the window that a user has in front.
struct WindowInFront {
    WindowInFront() { InstallPresence(WindowPresence()); }
    /// Ready to print.
    void open(const CommandLine& commandLine) {
        window_ = ShowWindow(commandLine);
        waitToPrint();
    }
    void waitToPrint() const {
        ASSERT_TRUE(Wait([this] { return print()->isEnabled(); }));
    }
    void expectPrinted() const {
        ASSERT_TRUE(Wait([this] { return !window_->isVisible(); }));
        EXPECT_EQ(window_->exitCode(), kExitDone);
    }
    [[nodiscard]] QPushButton* button(const QString& text) const {
        return ButtonWith(*window_, text);
    }
    [[nodiscard]] QPushButton* print() const { return button("&Print"); }
    [[nodiscard]] QComboBox* popup(const QString& item) const { return PopupWith(*window_, item); }
    /// In the popup that has the item, as a person does it.
    void choose(const QString& item) const {
        ASSERT_NE(popup(item), nullptr) << item.toStdString();
        Pick(*popup(item), item);
    }
    [[nodiscard]] QSpinBox* copies() const { return window_->findChild<QSpinBox*>(); }
    [[nodiscard]] QComboBox* sides() const { return window_->findChild<QComboBox*>("sides"); }
    [[nodiscard]] QComboBox* presets() const { return window_->findChild<PresetChoice*>()->list(); }
    [[nodiscard]] QString fault() const { return window_->findChild<SendingBar*>()->fault(); }

    std::unique_ptr<PrintWindow> window_;
};

}  // namespace kalmo::test
