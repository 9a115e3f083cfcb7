#include <algorithm>
#include <iterator>

#include "controls/panel_layout.h"
#include "image_options/about_box.h"
#include "image_options/advanced_panel.h"
#include "settings/ppd_menus.h"
#include "settings/setting_maps.h"
#include "settings/setting_menus.h"

namespace kalmo {
namespace {

constexpr SInt32 kSection = 600, kAboutID = 670;

struct PopupRow {
    SInt32 id;
    ControlRef AdvancedControls::*popup;
    SInt32 _AdvancedContext::*value;
    /// What a choice in the popup means to the record.
    SInt32 (*chosen)(ControlRef popup);
    const SettingMap* map;  // null: filled with the choices of the PPD option
    const char* keyword;    // null: not a PPD option
};
constexpr PopupRow kPopups[] = {
    {602, &AdvancedControls::bookletOrder, &_AdvancedContext::bookletOrder,
     GetPopupButtonTicketValue, BookletLayoutOrderMap, nullptr},
    {604, &AdvancedControls::rotate, &_AdvancedContext::rotate, GetControl32BitValue,
     RotateImageMap, nullptr},
    {606, &AdvancedControls::outputOption, &_AdvancedContext::outputOption,
     GetPopupButtonTicketValue, OutputOptionsMap, "KLOutputOption"},
    {614, &AdvancedControls::banner, &_AdvancedContext::banner, GetPopupButtonTicketValue, nullptr,
     "JCLBanner"},
    {616, &AdvancedControls::offset, &_AdvancedContext::offset, GetPopupButtonTicketValue, nullptr,
     "Jog"},
};

/// Nothing is chosen until the record is shown, so that a choice the menu lacks shows as none.
bool FillFromPrinter(ControlRef popup, PPDRef ppd, const char* keyword) {
    const SInt32 count =
        PPDPopulatePopupWithChoices(popup, ppd, CFStringMakeConstant(keyword), Constraints::ignore);
    SetControl32BitMinimum(popup, 0);
    SetControl32BitValue(popup, 0);
    return count > 0;
}

/// Whether the printer can do anything with a choice.
bool FillPopup(const _AdvancedContext& context, const PopupRow& row, ControlRef popup) {
    if (!row.map) return FillFromPrinter(popup, context.ppd, row.keyword);
    PopulatePopupButtonFromMap(context.bundle, popup, row.map, JobContext::job, 0);
    return !row.keyword || PPDOffersChoices(context.ppd, CFStringMakeConstant(row.keyword));
}

void FillPopups(_AdvancedContext& context) {
    const WindowRef window = GetControlOwner(context.pane);
    for (const PopupRow& row : kPopups) {
        ControlRef& popup = context.controls.*row.popup;
        GetControlByID(window, {'KPDE', row.id}, &popup);
        if (!FillPopup(context, row, popup)) DisableControl(popup);
    }
    // No value selects a row of this menu, so it begins with the one that the default counts.
    SetControl32BitValue(context.controls.bookletOrder, kDefaultBookletOrder);
}

void InstallHandler(_AdvancedContext& context) {
    constexpr EventTypeSpec kEvents[] = {{kEventClassControl, kEventControlHit}};
    InstallControlEventHandler(context.pane, pdeShellAdvancedEventHandler, std::size(kEvents),
                               kEvents, &context, &context.handler);
}

void ObeyHit(_AdvancedContext& context, SInt32 id) {
    if (id == kAboutID) RunModalAboutDialog(context.bundle);
    const auto* row = std::ranges::find(kPopups, id, &PopupRow::id);
    if (row != std::end(kPopups)) context.*row->value = row->chosen(context.controls.*row->popup);
}

}  // namespace

OSStatus BuildAdvancedControls(_AdvancedContext& context) {
    const PanelSource source{context.bundle, CFSTR("AdvancedPanel"), CFSTR("Advanced")};
    const OSStatus status = AppendSections(context.pane, source, {kSection});
    if (status != noErr) return status;
    FillPopups(context);
    InstallHandler(context);
    context.opened = true;
    ShowAdvanced(context);
    return noErr;
}

void setControls(_AdvancedContext& context) {
    for (const PopupRow& row : kPopups) {
        const ControlRef popup = context.controls.*row.popup;
        const SInt32 value = context.*row.value;
        // The first item of a value that all share would displace the one the user chose.
        if (row.map && GetPopupButtonTicketValue(popup) != value)
            SetPopupButtonToTicketValue(popup, value);
    }
}

void ShowAdvanced(_AdvancedContext& context) {
    for (const PopupRow& row : kPopups)
        if (!row.map) SetPopupButtonToTicketValue(context.controls.*row.popup, context.*row.value);
    setControls(context);
    SetControlNeedsDisplay(context.pane);
}

OSStatus pdeShellAdvancedEventHandler(EventHandlerCallRef, EventRef event, void* userData) {
    return WithoutExceptions(eventNotHandledErr, [&] {
        ObeyHit(*static_cast<_AdvancedContext*>(userData), IDOfHit(event));
        return eventNotHandledErr;
    });
}

}  // namespace kalmo
