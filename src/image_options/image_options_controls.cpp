#include <algorithm>
#include <iterator>

#include "controls/panel_layout.h"
#include "controls/pictures.h"
#include "image_options/image_options_panel.h"
#include "settings/ppd_menus.h"
#include "settings/setting_menus.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

const std::vector<SInt32> kSections = {1300, 1500, 2100};

struct ControlRow {
    SInt32 id;
    ControlRef ImageOptionsControls::*control;
};
/// Their texts stand in the interface file, by key.
constexpr ControlRow kControls[] = {
    {1301, &ImageOptionsControls::tonerSaverLabel},
    {1302, &ImageOptionsControls::tonerSaver},
    {1303, &ImageOptionsControls::tonerSaverPicture},
    {1501, &ImageOptionsControls::resolutionLabel},
    {1502, &ImageOptionsControls::resolution},
    {1503, &ImageOptionsControls::resolutionPicture},
    {2101, &ImageOptionsControls::invertLabel},
    {2102, &ImageOptionsControls::negative},
    {2103, &ImageOptionsControls::mirror},
    {2104, &ImageOptionsControls::invertPicture},
};

/// Hits that only show the record again, and those that first take over the controls. Some ids
/// belong to controls of other configurations of this panel.
constexpr SInt32 kShowAgainID = 1004;
constexpr SInt32 kTakeOverIDs[] = {1109, 1202, 1302, 1402, 1502, 1602,
                                   1802, 1902, 2002, 2102, 2103};

constexpr SInt32 kTonerSaverOn = 1, kTonerSaverOff = 2;

/// A picture file of the bundle, and the key of the words that say the same.
struct Illustration {
    const char* file;
    const char* descriptionKey;
};

constexpr Illustration kTonerSaverPictures[] = {
    {"ImageOptions_TonerSaver_Off.gif", "ImageOptionsTonerSaverOffDescription"},
    {"ImageOptions_TonerSaver_On.gif", "ImageOptionsTonerSaverOnDescription"},
};
constexpr Illustration kResolution600 = {"ImageOptions_Resolution_600.gif",
                                         "ImageOptionsResolution600Description"};
constexpr Illustration kResolution1200 = {"ImageOptions_Resolution_1200.gif",
                                          "ImageOptionsResolution1200Description"};
constexpr Illustration kResolution1800 = {"ImageOptions_Resolution_1800.gif",
                                          "ImageOptionsResolution1800Description"};
constexpr Illustration kResolutionOther = {"ImageOptions_AntiAliasing_PrnDef.gif",
                                           "ImageOptionsResolutionOtherDescription"};
/// By negative (1) plus mirror (2).
constexpr Illustration kInvertPictures[] = {
    {"ImageOptions_InvertImage_Off.gif", "ImageOptionsInvertOffDescription"},
    {"ImageOptions_InvertImage_Negative.gif", "ImageOptionsInvertNegativeDescription"},
    {"ImageOptions_InvertImage_Mirror.gif", "ImageOptionsInvertMirrorDescription"},
    {"ImageOptions_InvertImage_Negative&Mirror.gif", "ImageOptionsInvertBothDescription"},
};

const Illustration& TonerSaverPicture(const ImageOptionsContext& context) {
    return kTonerSaverPictures[context.tonerSaver == kTonerSaverOn ? 1 : 0];
}

const Illustration& ResolutionPicture(const ImageOptionsContext& context) {
    switch (context.resolution) {
        case 1:
        case 2:
            return kResolution600;
        case 3:
        case 4:
            return kResolution1200;
        case 7:
            return kResolution1800;
        default:
            return kResolutionOther;
    }
}

const Illustration& InvertPicture(const ImageOptionsContext& context) {
    return kInvertPictures[(context.invert.NegativeImage ? 1 : 0) +
                           (context.invert.MirrorImage ? 2 : 0)];
}

struct PictureRow {
    ControlRef ImageOptionsControls::*control;
    const Illustration& (*illustration)(const ImageOptionsContext&);
};
constexpr PictureRow kPictures[] = {
    {&ImageOptionsControls::tonerSaverPicture, TonerSaverPicture},
    {&ImageOptionsControls::resolutionPicture, ResolutionPicture},
    {&ImageOptionsControls::invertPicture, InvertPicture},
};

void ShowPictures(ImageOptionsContext& context) {
    for (const PictureRow& row : kPictures) {
        const ControlRef picture = context.controls.*row.control;
        const CFStringRef key = CFStringMakeConstant(row.illustration(context).descriptionKey);
        SetControlAccessibleDescription(picture, CopyText(context.bundle, key));
        SetControlNeedsDisplay(picture);
    }
}

void FindControls(ImageOptionsContext& context) {
    const WindowRef window = GetControlOwner(context.pane);
    for (const ControlRow& row : kControls)
        GetControlByID(window, {'KPDE', row.id}, &(context.controls.*row.control));
}

/// Nothing is chosen until the record is shown, so that a choice the menu lacks is kept.
void FillResolutionMenu(ImageOptionsContext& context) {
    const ControlRef popup = context.controls.resolution;
    if (PPDPopulatePopupWithChoices(popup, context.ppd, CFSTR("Resolution"), Constraints::ignore) ==
        0)
        DisableControl(popup);
    SetControl32BitMinimum(popup, 0);
    SetControl32BitValue(popup, 0);
}

OSStatus PanePasser(EventHandlerCallRef next, EventRef event, void* context) {
    return GetEventKind(event) == kEventControlDraw
               ? ImageOptionsDrawEventHandler(next, event, context)
               : ImageOptionsPanelEventHandler(next, event, context);
}

/// One handler on the pane: the events of all controls in it pass there.
void InstallHandler(ImageOptionsContext& context) {
    constexpr EventTypeSpec kEvents[] = {{kEventClassControl, kEventControlHit},
                                         {kEventClassControl, kEventControlDraw}};
    InstallControlEventHandler(context.pane, PanePasser, std::size(kEvents), kEvents, &context,
                               &context.handler);
}

void TakeOverOrShow(ImageOptionsContext& context, SInt32 id) {
    if (std::ranges::find(kTakeOverIDs, id) != std::end(kTakeOverIDs))
        SaveUIValuesToData(context);
    else if (id != kShowAgainID)
        return;
    RestoreUIValuesFromData(context);
}

}  // namespace

void UpdateHalftoneScreenMenu(ImageOptionsContext&) {}

void SaveUIValuesToData(ImageOptionsContext& context) {
    if (!context.opened) return;
    const ImageOptionsControls& controls = context.controls;
    // A control that the interface file left out keeps its value in the record.
    if (controls.tonerSaver) {
        const bool saves = GetControl32BitValue(controls.tonerSaver) == 1;
        context.tonerSaver = saves ? kTonerSaverOn : kTonerSaverOff;
    }
    if (controls.resolution) context.resolution = GetPopupButtonTicketValue(controls.resolution);
    if (controls.negative) {
        context.invert.NegativeImage = GetControl32BitValue(controls.negative) != 0;
    }
    if (controls.mirror) context.invert.MirrorImage = GetControl32BitValue(controls.mirror) != 0;
}

void RestoreUIValuesFromData(ImageOptionsContext& context) {
    if (!context.opened) return;
    const ImageOptionsControls& controls = context.controls;
    SetControl32BitValue(controls.tonerSaver, context.tonerSaver == kTonerSaverOn);
    SetPopupButtonToTicketValue(controls.resolution, context.resolution);
    ShowInvertImage(context);
}

void ShowInvertImage(ImageOptionsContext& context) {
    if (!context.opened) return;
    SetControl32BitValue(context.controls.negative, context.invert.NegativeImage);
    SetControl32BitValue(context.controls.mirror, context.invert.MirrorImage);
    ShowPictures(context);
}

OSStatus BuildImageOptionsControls(ImageOptionsContext& context) {
    const PanelSource source{context.bundle, CFSTR("ImageOptionsPanel"), CFSTR("Window")};
    const OSStatus status = AppendSections(context.pane, source, kSections);
    if (status != noErr) return status;
    FindControls(context);
    FillResolutionMenu(context);
    UpdateHalftoneScreenMenu(context);
    InstallHandler(context);
    context.opened = true;
    // The shell may ask for the values before it has sent any: then they are the record's own.
    RestoreUIValuesFromData(context);
    return noErr;
}

OSStatus ImageOptionsPanelEventHandler(EventHandlerCallRef, EventRef event, void* userData) {
    return WithoutExceptions(eventNotHandledErr, [&] {
        TakeOverOrShow(*static_cast<ImageOptionsContext*>(userData), IDOfHit(event));
        return eventNotHandledErr;
    });
}

OSStatus ImageOptionsDrawEventHandler(EventHandlerCallRef, EventRef event, void* userData) {
    return WithoutExceptions(eventNotHandledErr, [&]() -> OSStatus {
        const auto& context = *static_cast<ImageOptionsContext*>(userData);
        for (const PictureRow& row : kPictures)
            if (const ControlRef picture = context.controls.*row.control;
                picture && picture == GetEventControl(event))
                return DrawImage(event, CFStringMakeConstant(row.illustration(context).file));
        return eventNotHandledErr;
    });
}

}  // namespace kalmo
