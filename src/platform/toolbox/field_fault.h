// What is wrong with a field, told to those who do not see the notice any more.
#pragma once

#include <QWidget>

namespace toolbox {

/// `field`, or the text field of a popup, is described by `message` until its text changes. Of
/// another view nothing is said.
void DescribeFault(QWidget* field, const QString& message);

/// Whatever field has the window's focus when the events at hand are done is described so.
void DescribeFaultOfFocusedField(QWidget& window, const QString& message);

}  // namespace toolbox
