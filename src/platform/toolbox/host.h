// The bridge for the print dialog and for tests: widgets as controls and back.
#pragma once

#include <QWidget>

#include "system/presence.h"
#include "toolbox/controls.h"
#include "toolbox/events.h"

#pragma GCC visibility push(default)

[[nodiscard]] ControlRef ControlFromWidget(QWidget* widget);
[[nodiscard]] QWidget* WidgetFromControl(ControlRef control);
[[nodiscard]] WindowRef WindowFromWidget(QWidget* window);
[[nodiscard]] QWidget* WidgetFromWindow(WindowRef window);

/// The Presence of a program with windows: message boxes over the active window, the help viewer.
[[nodiscard]] Presence WindowPresence();

/// Ignores mouse wheels over controls without keyboard focus, for every window of the program.
/// Once.
void InstallWheelGuard();

#pragma GCC visibility pop
