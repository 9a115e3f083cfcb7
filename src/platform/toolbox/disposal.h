// Freeing widgets.
#pragma once

#include <QWidget>

namespace toolbox {

/// Sends kEventControlDispose to everything inside and then to the widget, once, and ends their
/// handlers. Takes the widget out of sight and out of its window, and frees it: at once, or after
/// the running event when handlers run, since the widget may have sent it.
void Dispose(QWidget& widget);

}  // namespace toolbox
