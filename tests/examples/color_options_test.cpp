// The example of a colour panel, in the product's pane.
#include "house/resource_files.h"
#include "shell/product.h"
#include "support/dictionaries.h"
#include "support/window_walk.h"

namespace kalmo::test {
namespace {

#define kColorOptionsKey CFSTR("com.example.ColorOptions")

/// The pane with the panel behind the product's own, and the panel shown.
struct ColorPane : PaneDialog {
    ColorPane() : PaneDialog((Offer(), CreateInstance())) {
        EXPECT_EQ(initialize() | open(), noErr);
        auto* selector = FindControl<QComboBox>(window, 'Kshl', 16);
        Pick(*selector, selector->itemText(selector->count() - 1));
        slider = FindControl<QSlider>(window, 'XCol', 3);
    }
    static void Offer() {
        SetPlugInRoot(FileURL(KALMO_BINARY_DIR "/examples/color_options/root"));
        static_cast<CFStringRef*>(CFBundleGetDataPointerForName(
            Product(), CFSTR("PanelInterfaces")))[4] = CFSTR("GetColorOptionPanelInterface");
    }
    void read(CFTypeRef item) {
        PMTicketSetItem(ticket, CFSTR("test"), kColorOptionsKey, item, false);
        EXPECT_EQ(sync(kSyncToUI), noErr);
    }
    void reset() { FindControl<QPushButton>(window, 'XCol', 5)->click(); }
    /// Whether Sync towards the ticket leaves these entries there; no item when there are none.
    bool writes(const std::string& entries) {
        EXPECT_EQ(sync(kSyncToTicket), noErr);
        CFTypeRef item = nullptr;
        PMTicketGetItem(ticket, kColorOptionsKey, &item);
        return entries.empty() ? !item : CFEqual(item, Dictionary(entries));
    }

    QSlider* slider = nullptr;
};

TEST(ColorOptions, TheSliderSetsTheLightnessAndTheButtonLeavesItToThePrinter) {
    ColorPane pane;
    ASSERT_TRUE(pane.slider && pane.slider->isVisibleTo(&pane.window));
    EXPECT_TRUE(pane.writes(""));
    for (const int lightness : {40, 0}) {
        pane.slider->setValue(lightness);
        EXPECT_TRUE(pane.writes("FCLightness=" + std::to_string(lightness)));
    }
    pane.reset();
    EXPECT_EQ(FindControl<QLabel>(pane.window, 'XCol', 4)->text(), "Printer default");
    EXPECT_TRUE(pane.writes(""));
}

TEST(ColorOptions, ARecordGoesRoundWithAllThatThePanelDoesNotShow) {
    ColorPane pane;
    pane.read(Dictionary("FCLightness=-30 FCContrast=5 DestinationProfile=x"));
    EXPECT_EQ(pane.slider->value(), -30);
    EXPECT_TRUE(pane.writes("FCLightness=-30 FCContrast=5 DestinationProfile=x"));
    pane.reset();
    EXPECT_TRUE(pane.writes("FCContrast=5 DestinationProfile=x"));
    pane.read(CFSTR("no dictionary"));
    EXPECT_TRUE(pane.writes(""));
}

TEST(ColorOptions, ItServesEverybodyInEveryLanguage) {
    for (const std::string& language : Languages()) {
        setenv("LANGUAGE", language.c_str(), 1);
        ColorPane pane;
        pane.window.show();
        EXPECT_TRUE(WindowFaults(*pane.slider->parentWidget(), Identities::needed).empty());
        EXPECT_EQ(CutTexts(*pane.slider->parentWidget()), std::vector<std::string>()) << language;
    }
}

}  // namespace
}  // namespace kalmo::test
