#include "interface.h"

namespace kalmo::test {
namespace {

TEST(InterfaceFile, FaultyFilesAreRefusedWithOneLine) {
    const std::string box = WidgetText("QCheckBox", 1);
    const std::tuple<const char*, std::string, const char*> cases[] = {
        {"no XML", "<ui", "Interface file Panel: line"},
        {"another kind of XML", "<plist/>", "no interface file"},
        {"an unknown class that names its base",
         WindowFile("<widget class=\"NoSuch\" name=\"n\"/>")
             .insert(WindowFile("<widget class=\"NoSuch\" name=\"n\"/>").size() - 5,
                     "<customwidgets><customwidget><class>NoSuch</class><extends>QWidget</extends>"
                     "</customwidget></customwidgets>"),
         "NoSuch"},
        {"an id twice", WindowFile(box + box), "used twice at w1 (1)"},
        {"an id without signature",
         WindowFile("<widget class=\"QCheckBox\" name=\"c\"><property name=\"controlID\" "
                    "stdset=\"0\"><number>7</number></property></widget>"),
         "no signature of four characters at c (7)"},
        {"no such window", "<ui version=\"4.0\"><widget class=\"QWidget\" name=\"Other\"/></ui>",
         "no window Window"},
    };
    for (const auto& [why, ui, says] : cases) {
        SCOPED_TRACE(why);
        testing::internal::CaptureStderr();
        const Interface interface(ui);
        EXPECT_EQ(interface.opened, nibNotFoundErr);
        EXPECT_NE(testing::internal::GetCapturedStderr().find(says), std::string::npos);
        EXPECT_EQ(interface.window, nullptr);
    }
}

TEST(InterfaceFile, TextsComeByKeyAndMissingOnesAreNamed) {
    testing::internal::CaptureStderr();
    const Interface interface(
        WindowFile(WidgetText("QCheckBox", 1,
                              StringProperty("textKey", "Box") + StringProperty("tipKey", "Tip")) +
                   WidgetText("QToolButton", 2, StringProperty("nameKey", "Name")) +
                   WidgetText("QLabel", 3, StringProperty("textKey", "Missing"))),
        "\"Box\" = \"B\u00f6x\"; \"Tip\" = \"a < b <b>\"; \"Name\" = \"Na&me "
        "&& Co\";");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "No text for Missing in Localizable.strings\n");
    EXPECT_EQ(interface.widget<QAbstractButton>(1)->text(), "B\u00f6x");
    EXPECT_EQ(interface.widget(1)->toolTip(), "a &lt; b &lt;b&gt;");
    EXPECT_EQ(interface.widget(2)->accessibleName(), "Name & Co");
    EXPECT_EQ(interface.widget<QLabel>(3)->text(), "STRING NOT FOUND");
}

}  // namespace
}  // namespace kalmo::test
