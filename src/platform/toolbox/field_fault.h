// What is wrong with a field, told to those who do not see the notice any more.
#pragma once

#include <QWidget>

namespace toolbox {

/// Whatever field has the window's focus when the events at hand are done is described by `message`
/// until its text changes.
void DescribeFaultOfFocusedField(QWidget& window, const QString& message);

}  // namespace toolbox
