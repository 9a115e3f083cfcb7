// The field with fixed choices and what was typed before, driven by its keys.
#include "controls/combo_box.h"

#include "platform/toolbox/interface.h"
#include "settings/dictionary.h"
#include "settings/user_preferences.h"

namespace kalmo::test {
namespace {

const SettingMap kMap[] = {{CFSTR("On"), 50}, {CFSTR("Off"), 0}, {CFSTR("Scan"), 7}, {}};
const CFStringRef kKey = CFSTR("field");

void WriteHistory(const QStringList& entries) {
    const auto file = ReadPlist(Plist("<dict><key>field</key><array><string>" +
                                      entries.join("</string><string>").toStdString() +
                                      "</string></array></dict>"));
    WriteUserPreferences(kInputHistoryFile, static_cast<CFDictionaryRef>(file.get()));
}

std::string History() {
    const auto file = Owned<CFDictionaryRef>::Adopt(CopyUserPreferences(kInputHistoryFile));
    const auto list = ValueOfType<CFArrayRef>(CFDictionaryGetValue(file, kKey), CFArrayGetTypeID());
    return TakeText(CFStringCreateByCombiningStrings(nullptr, list, CFSTR(" ")));
}

class ComboBox : public testing::Test {
protected:
    void TearDown() override { setenv("LC_ALL", "C.UTF-8", 1); }

    /// A field of its own on screen, with the choices of kMap, and types into it.
    void open(_KComboBoxOptions options, const char* keys = "") {
        interface = std::make_unique<Interface>(
            WindowFile(WidgetText("ComboField", 1) + WidgetText("QLineEdit", 2)),
            "\"On\" = \"Fifty\";");
        combo = interface->control(1);
        options.bundle = CFBundleGetBundleWithIdentifier(CFSTR("test.interface"));
        options.map = kMap, options.historyKey = kKey;
        EXPECT_EQ(KComboBoxInitializeWithMapAndHistory(combo, options), noErr);
        interface->windowWidget()->show();
        QApplication::setActiveWindow(interface->windowWidget());
        SetKeyboardFocus(combo);
        QTest::keyClicks(interface->widget(1), keys);
    }
    [[nodiscard]] std::string text() const { return TakeText(CopyControlTitleAsCFString(combo)); }
    [[nodiscard]] std::string items() const {
        std::string texts;
        for (UInt16 item = 1; item <= CountComboBoxItems(combo); ++item)
            texts += TakeText(CopyComboBoxItem(combo, item)) + " ";
        return texts;
    }

    std::unique_ptr<Interface> interface;
    ControlRef combo = nullptr;
};

TEST_F(ComboBox, TypedNumberIsHeldInRangeWhenTheFieldIsLeftAndWhenItIsRead) {
    const std::tuple<const char*, const char*, SInt32, SInt32, const char*, SInt32, const char*>
        rows[] = {
            {"below", "C", 10, 40, "9", 10, "10"},
            {"above", "C", 10, 40, "41", 40, "40"},
            {"digits of the maximum", "C", 10, 40, "1-23", 12, "12"},
            {"a bound that is an item", "C", 50, 99, "1", 50, "Fifty"},
            {"digits of the locale", "ar_EG", 10, 40, "41", 40, "\u0664\u0660"},
            {"nothing typed", "C", 10, 40, "", 0, ""},
        };
    WriteHistory({});
    for (const auto& [why, locale, minimum, maximum, typed, number, shown] : rows) {
        SCOPED_TRACE(why);
        setenv("LC_ALL", locale, 1);
        const _KComboBoxOptions options = {
            .kind = kComboBoxNumber, .minimumValue = minimum, .maximumValue = maximum};
        open(options, typed);
        interface->widget(2)->setFocus();
        EXPECT_EQ(text(), shown);
        open(options, typed);
        Owned<CFTypeRef> read;
        EXPECT_EQ(KComboBoxCopyValue(combo, read.adopt()), *typed ? noErr : kComboBoxEmpty);
        EXPECT_TRUE(!read || CFEqual(read, CreateNumber(number)));
    }
}

TEST_F(ComboBox, WhatIsStillValidIsOfferedAndNewInputComesFirst) {
    WriteHistory({"12", "7", "bad", "101"});
    open({.kind = kComboBoxNumber, .minimumValue = 10, .maximumValue = 100});
    EXPECT_EQ(items(), "Fifty 12 ");
    const _KComboBoxOptions limited = {
        .historyLimit = 5, .maximumLength = 3, .characters = CFSTR("0127xyz")};
    const auto remember = [this](const _KComboBoxOptions& options, const char* keys) {
        open(options, keys);
        KComboBoxFinalize(combo, true);
        return History();
    };
    for (const char* nothingNew : {"", "7"})
        EXPECT_EQ(remember(limited, nothingNew), "12 7 bad 101");
    EXPECT_EQ(items(), "Fifty 12 7 101 ");
    EXPECT_EQ(remember(limited, "x"), "x 12 7 bad 101");
    EXPECT_EQ(remember(limited, "y"), "y x 12 7 bad");
    EXPECT_EQ(remember({}, "Fifty"), "y x 12 7 bad") << "a choice of the map";
    EXPECT_EQ(remember({}, "z"), "z y x 12 7 bad") << "0 is no limit";
}

}  // namespace
}  // namespace kalmo::test
