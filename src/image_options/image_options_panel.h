// The Image Options panel: toner saver, resolution, and negative or mirrored print, each with a
// picture of what is chosen.
//
// Toner saver and resolution travel as PPD choices, the invert flags in a dictionary of their own.
// The ticket functions move values between ticket and record only; Save and Restore move them
// between record and controls.
#pragma once

#include "settings/ppd_access.h"
#include "shell/base/panel_interface.h"
#include "special_pages/invert_image.h"
#include "toolbox/events.h"

namespace kalmo {

/// Null before the first Open, and where the interface file lacks one.
struct ImageOptionsControls {
    ControlRef tonerSaverLabel = nullptr, tonerSaver = nullptr, tonerSaverPicture = nullptr;
    ControlRef resolutionLabel = nullptr, resolution = nullptr, resolutionPicture = nullptr;
    ControlRef invertLabel = nullptr, negative = nullptr, mirror = nullptr, invertPicture = nullptr;
};

struct ImageOptionsContext : PanelContext {
    SInt32 tonerSaver = 0;  // value of "KLEconomode": 1 saves, 2 does not
    SInt32 resolution = 0;  // value of "Resolution"
    II_Options invert;      // negative and mirror image
    /// Stays empty: the panel shows the two flags itself, in boxes of its own.
    InvertImageContext invertHelper;
    ImageOptionsControls controls;
    EventHandlerRef handler = nullptr;
};

// Each does nothing without a ticket. Always 0.
OSStatus SyncTonerSaverToTicket(ImageOptionsContext& context, PMTicketRef ticket);
OSStatus SyncTonerSaverToUI(ImageOptionsContext& context, PMTicketRef ticket);
OSStatus SyncResolutionToTicket(ImageOptionsContext& context, PMTicketRef ticket);
OSStatus SyncResolutionToUI(ImageOptionsContext& context, PMTicketRef ticket);
// This panel has no lighten or darken setting and no halftone menu.
OSStatus SyncLightenDarkenToTicket(ImageOptionsContext& context, PMTicketRef ticket);
OSStatus SyncLightenDarkenToUI(ImageOptionsContext& context, PMTicketRef ticket);
void UpdateHalftoneScreenMenu(ImageOptionsContext& context);

/// Controls to record; nothing before they exist.
void SaveUIValuesToData(ImageOptionsContext& context);
/// Record to controls and pictures; nothing before they exist.
void RestoreUIValuesFromData(ImageOptionsContext& context);
/// The same for the two invert flags and the pictures.
void ShowInvertImage(ImageOptionsContext& context);

/// Builds the controls in the pane and shows the record. The failure of the interface file.
OSStatus BuildImageOptionsControls(ImageOptionsContext& context);
/// Hits of the panel's controls, on their way through the pane. Never consumes one.
OSStatus ImageOptionsPanelEventHandler(EventHandlerCallRef next, EventRef event, void* context);
/// Draws the picture controls.
OSStatus ImageOptionsDrawEventHandler(EventHandlerCallRef next, EventRef event, void* context);

}  // namespace kalmo

extern "C" [[gnu::visibility("default")]] OSStatus GetImageOptionsPanelInterface(
    PDEInterfaceObject** out);
