// Fields for dates and times.
#include <QTest>
#include <limits>

#include "interface.h"
#include "system/clock.h"

namespace kalmo::test {
namespace {

TEST(DateTimeFields, GiveBackWhatTheyCanShowAndHitWhenTyped) {
    setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);  // leaves an hour of 31 March 2030 out
    tzset();
    Interface interface(WindowFile(WidgetText("QTimeEdit", 1)));
    ASSERT_EQ(interface.open(), noErr);
    const ControlRef control = interface.control(1);
    std::string record;
    Recorder recorder{'h', &record};
    InstallControlEventHandler(control, Recorder::Handle, 1, &kHit, &recorder, nullptr);
    const SInt64 leftOut = LongDateToSeconds({2030, 3, 31, 2, 30, 5});
    for (const auto& [seconds, shown] :
         {std::pair{SInt64{0}, SInt64{0}},
          {leftOut, leftOut},
          {std::numeric_limits<SInt64>::max(), LongDateToSeconds({9999, 12, 31, 23, 59, 59})},
          {std::numeric_limits<SInt64>::min(), LongDateToSeconds({100, 1, 1})}}) {
        SetControlDateTime(control, seconds);
        EXPECT_EQ(GetControlDateTime(control), shown);
    }
    EXPECT_EQ(record, "");
    SetControlDateTime(control, leftOut);
    interface.widget<QTimeEdit>(1)->setSelectedSection(QTimeEdit::MinuteSection);
    QTest::keyClicks(interface.widget(1), "45");
    EXPECT_NE(record, "");
    EXPECT_EQ(GetControlDateTime(control), leftOut + 15 * 60);
    unsetenv("TZ");
    tzset();
}

}  // namespace
}  // namespace kalmo::test
