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
        if (popup->findText(item) >= 0) return popup;
    return nullptr;
}

}  // namespace kalmo::test
