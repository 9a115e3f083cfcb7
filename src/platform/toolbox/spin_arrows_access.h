// What assistive technology finds at arrows: a spin box.
#pragma once

#include <QAccessible>

namespace toolbox {

/// A factory for QAccessible; null for other objects.
[[nodiscard]] QAccessibleInterface* DescribeSpinArrows(const QString& className, QObject* object);

}  // namespace toolbox
