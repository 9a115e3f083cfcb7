// Fields for dates and times.
#include <QDateTimeEdit>
#include <QTest>
#include <limits>

#include "interface.h"
#include "system/clock.h"

namespace kalmo::test {
namespace {

/// A wall clock that leaves out an hour on 31 March 2030, and shows one twice in October.
class DateTimeFields : public testing::Test {
protected:
    void SetUp() override {
        setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
        tzset();
        ASSERT_EQ(interface.open(), noErr);
    }
    void TearDown() override {
        unsetenv("TZ");
        tzset();
    }

    Interface interface {
        WindowFile(WidgetText("QTimeEdit", 1) + WidgetText("QDateTimeEdit", 2) +
                   WidgetText("QLabel", 3))
    };
};

TEST_F(DateTimeFields, GiveBackWhatTheyCanShow) {
    const SInt64 leftOut = LongDateToSeconds({2030, 3, 31, 2, 30, 5});
    const SInt64 latest = LongDateToSeconds({9999, 12, 31, 23, 59, 59});
    const struct {
        const char* why;
        SInt64 seconds;
        SInt64 inTime, inDate;
    } rows[] = {
        {"the start", 0, 0, 0},
        {"a time left out", leftOut, leftOut, leftOut},
        {"after any calendar", std::numeric_limits<SInt64>::max(), latest, latest},
        {"before any calendar", std::numeric_limits<SInt64>::min(), LongDateToSeconds({100, 1, 1}),
         LongDateToSeconds({1752, 9, 14})},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        SetControlDateTime(interface.control(1), row.seconds);
        SetControlDateTime(interface.control(2), row.seconds);
        EXPECT_EQ(GetControlDateTime(interface.control(1)), row.inTime);
        EXPECT_EQ(GetControlDateTime(interface.control(2)), row.inDate);
    }
    SetControlDateTime(interface.control(3), 5);
    EXPECT_EQ(GetControlDateTime(interface.control(3)), 0);
}

TEST_F(DateTimeFields, TypingHitsAndKeepsTheDate) {
    std::string record;
    Recorder recorder{'h', &record};
    InstallControlEventHandler(interface.control(1), Recorder::Handle, 1, &kHit, &recorder,
                               nullptr);
    SetControlDateTime(interface.control(1), LongDateToSeconds({2031, 5, 6, 7, 8, 0}));
    EXPECT_EQ(record, "");
    auto* const time = interface.widget<QDateTimeEdit>(1);
    time->setCurrentSection(QDateTimeEdit::MinuteSection);
    time->setSelectedSection(QDateTimeEdit::MinuteSection);
    QTest::keyClicks(time, "45");
    EXPECT_NE(record, "");
    EXPECT_EQ(GetControlDateTime(interface.control(1)), LongDateToSeconds({2031, 5, 6, 7, 45, 0}));
}

}  // namespace
}  // namespace kalmo::test
