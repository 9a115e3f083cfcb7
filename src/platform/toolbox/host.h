// The bridge for the print dialog and for tests: widgets as controls and back.
#pragma once

#include <QString>
#include <QWidget>

#include "system/presence.h"
#include "toolbox/controls.h"
#include "toolbox/events.h"

#pragma GCC visibility push(default)

[[nodiscard]] ControlRef ControlFromWidget(QWidget* widget);
[[nodiscard]] QWidget* WidgetFromControl(ControlRef control);
[[nodiscard]] WindowRef WindowFromWidget(QWidget* window);
[[nodiscard]] QWidget* WidgetFromWindow(WindowRef window);

/// What stands in the help viewer, in the user's language. An ampersand precedes a button's
/// mnemonic.
struct HelpViewerTexts {
    QString title = "Help";
    QString page = "Help page";  // the page's accessible name
    QString back = "&Back", forward = "&Forward", contents = "&Contents";
};

/// The Presence of a program with windows: message boxes over the active window, the help viewer.
[[nodiscard]] Presence WindowPresence(const HelpViewerTexts& texts = {});

/// Whether code behind a control or window has asked the user something and waits for the answer,
/// or has it and is about to go on: what it works on must stay.
[[nodiscard]] bool CallersWaitForUser();

/// Ignores mouse wheels over controls without keyboard focus, for every window of the program.
/// Once.
void InstallWheelGuard();

#pragma GCC visibility pop
