// Every window of the product: names, keyboard, identities, and room for its texts.
#include "toolbox/windows.h"
#include "foundation/strings_table.h"
#include "house/resource_files.h"
#include "support/qt_test.h"
#include "support/window_walk.h"

namespace kalmo::test {
namespace {

/// What stands beside a pane's controls: the print window's own texts, and the pane's frame.
std::vector<std::string> TextsAroundPane(const std::string& language, bool isFrame) {
    std::vector<std::string> around;
    const auto add = [&](const std::filesystem::path& table, const std::string& prefix) {
        for (const auto& [key, text] : ReadStringsTable(ReadFile(table)).texts) {
            // The help window, the address book and the summary are windows of their own.
            if (text.find('&') != std::string::npos && key.starts_with(prefix) &&
                !key.starts_with("Help window") && !key.starts_with("Address book") &&
                !key.starts_with("Summary window"))
                around.push_back(text);
        }
    };
    const std::string folder = language + ".lproj";
    add(std::filesystem::path(KALMO_SOURCE_DIR) / "resources/kalmo-print" / folder /
            "Window.strings",
        "");
    if (!isFrame) add(kResources / folder / "Localizable.strings", "Panel Selector Label");
    return around;
}

bool IsDialog(WindowRef window) {
    ControlRef button = nullptr;
    return GetWindowDefaultButton(window, &button) == noErr && button;
}

CFStringRef Text(const QString& text) { return CFStringMakeConstant(qUtf8Printable(text)); }

/// Restores what the whole program shares.
struct Windows : testing::Test {
    void TearDown() override { QApplication::setFont(font); }

    void check(const std::filesystem::path& file) {
        IBNibRef nib = nullptr;
        const QString name = QString::fromStdString(file.stem().string());
        ASSERT_EQ(CreateNibReferenceWithCFBundle(bundle, Text(name), &nib), noErr) << file;
        for (const QString& windowName : WindowNames(file)) {
            SCOPED_TRACE(name.toStdString() + " " + windowName.toStdString());
            WindowRef window = nullptr;
            ASSERT_EQ(CreateWindowFromNib(nib, Text(windowName), &window), noErr);
            QWidget& widget = *WidgetFromWindow(window);
            EXPECT_EQ(WindowFaults(widget, Identities::needed), std::vector<std::string>());
            EXPECT_EQ(CutTexts(widget), std::vector<std::string>());
            std::vector<std::string> around;
            if (!IsDialog(window))
                around = TextsAroundPane(getenv("LANGUAGE"), name == "PDE_Shell");
            ForEachFront(widget, [&] {
                std::vector<std::string> texts = MnemonicTexts(widget);
                texts.insert(texts.end(), around.begin(), around.end());
                EXPECT_EQ(RepeatedMnemonics(texts), std::vector<std::string>());
            });
            ++checked;
            DisposeWindow(window);
        }
        DisposeNibReference(nib);
    }

    Owned<CFBundleRef> bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    QFont font = QApplication::font();
    int checked = 0;
};

TEST_F(Windows, ServeEverybodyInEveryLanguageAndSize) {
    for (const std::string& language : Languages()) {
        for (const qreal points : {9.0, 18.0}) {
            SCOPED_TRACE(language + " at " + std::to_string(points));
            setenv("LANGUAGE", language.c_str(), 1);
            QFont sized = font;
            sized.setPointSizeF(points);
            QApplication::setFont(sized);
            ForEachFile(kResources, {".ui"}, [this](const auto& file) { check(file); });
        }
    }
    EXPECT_GE(checked, 8) << "the files were not found";
}

}  // namespace
}  // namespace kalmo::test
