// Keys that go out to the handlers before a control sees them.
#pragma once

#include <QKeyEvent>
#include <QWidget>
#include <functional>

namespace toolbox {

/// Sends the raw key; `standard` is what the widget does with it. The key is accepted unless that
/// ignores it. The widget may be gone afterwards.
void SendRawKey(QWidget& widget, QKeyEvent& key, const std::function<void()>& standard);

}  // namespace toolbox
