#include "toolbox/date_time_field.h"

#include <QSignalBlocker>
#include <algorithm>

#include "system/clock.h"
#include "toolbox/control_state.h"

namespace toolbox {
namespace {

/// What such a field can show at most.
constexpr LongDateFields kFirst{.year = 100};
constexpr LongDateFields kLast{
    .year = 9999, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59};

QDateTimeEdit* FieldOf(ControlRef control) {
    return qobject_cast<QDateTimeEdit*>(ToWidget(control));
}

QDateTime FromSeconds(SInt64 seconds) {
    static const SInt64 first = LongDateToSeconds(kFirst), last = LongDateToSeconds(kLast);
    const LongDateFields date = LongSecondsToDate(std::clamp(seconds, first, last));
    return {QDate(date.year, date.month, date.day), QTime(date.hour, date.minute, date.second),
            Qt::UTC};
}

SInt64 ToSeconds(QDate date, QTime time) {
    return LongDateToSeconds(
        {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()});
}

}  // namespace

void TakeZoneAway(QDateTimeEdit& field) {
    const QDate date = field.date(), first = field.minimumDate(), last = field.maximumDate();
    const QTime time = field.time();
    field.setTimeSpec(Qt::UTC);  // moves all of them by the zone
    if (field.displayedSections() & QDateTimeEdit::DateSections_Mask) {
        field.setDateRange(first, last);
    }
    field.setTimeRange(QTime(0, 0), QTime(23, 59, 59, 999));
    field.setDateTime(QDateTime(date, time, Qt::UTC));
}

}  // namespace toolbox

using namespace toolbox;

SInt64 GetControlDateTime(ControlRef control) {
    const QDateTimeEdit* const field = FieldOf(control);
    return field ? ToSeconds(field->date(), field->time()) : 0;
}

void SetControlDateTime(ControlRef control, SInt64 seconds) {
    QDateTimeEdit* const field = FieldOf(control);
    if (!field) return;
    const QSignalBlocker quiet(field);
    field->setDateTime(FromSeconds(seconds));
}
