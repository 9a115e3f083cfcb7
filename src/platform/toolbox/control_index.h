// Controls by identity, for each window.
#pragma once

#include <QWidget>

#include "toolbox/controls.h"

namespace toolbox {

/// The control of that identity in the window, null when it has none. Constant time, except after
/// a miss: then the window is walked once.
[[nodiscard]] QWidget* FindControl(QWidget& window, const ControlID& id);

}  // namespace toolbox
