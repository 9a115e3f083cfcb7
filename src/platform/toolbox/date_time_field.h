// Fields for a date, a time or both.
#pragma once

#include <QDateTimeEdit>

namespace toolbox {

/// Makes the field reckon without a time zone, so that every time exists and none comes twice.
void TakeZoneAway(QDateTimeEdit& field);

}  // namespace toolbox
