// A picture as a button's icon.
#pragma once

#include <QIcon>

#include "toolbox/drawing.h"

namespace toolbox {

/// Drawn anew at each size and display scale; greyed by the style when disabled.
[[nodiscard]] QIcon MakeIcon(std::shared_ptr<Picture> picture);

}  // namespace toolbox
