#include "paper_output/stock/stock_menu.h"

#include <initializer_list>
#include <iterator>
#include <utility>

#include "paper_output/stock/custom_size_dialog.h"
#include "paper_output/stock/stock_summary.h"
#include "settings/installable_options.h"
#include "settings/ppd_menus.h"
#include "shell/base/panel_interface.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

// Values that stand for the printer's own choice, which a special page does not offer: it has the
// job's setting instead.
constexpr SInt32 kUnspecifiedColor = 22, kSystemDefaultType = 23, kUnspecifiedType = 34;

SInt32 ItemValue(MenuRef menu, UInt16 item) {
    ItemReference reference = 0;
    GetMenuItemRefCon(menu, item, &reference);
    return static_cast<SInt32>(reference);
}

UInt32 ItemCommand(MenuRef menu, UInt16 item) {
    UInt32 command = 0;
    GetMenuItemCommandID(menu, item, &command);
    return command;
}

void EmptyMenu(MenuRef menu) { DeleteMenuItems(menu, 1, CountMenuItems(menu)); }

void DeleteItemOfValue(MenuRef menu, SInt32 value) {
    UInt16 item = CountMenuItems(menu);
    while (item > 0 && ItemValue(menu, item) != value) --item;
    if (item > 0) DeleteMenuItem(menu, item);
}

/// "Same as the job", in front of the printer's choices.
OSStatus InsertUseJobSetting(MenuRef menu, CFBundleRef bundle, UInt32 command) {
    const auto text = CopyText(bundle, CFSTR("UseJobSetting"));
    const OSStatus status = InsertMenuItemTextWithCFString(menu, text, 0, kMenuItemPlain, command);
    return status == noErr ? SetMenuItemRefCon(menu, 1, kUnset) : status;
}

struct ChoiceMenu {
    CFStringRef keyword;
    UInt32 command;
    std::initializer_list<SInt32> jobOnly;  // choices that a special page does not offer
};

OSStatus FillFromPPD(MenuRef menu, CFBundleRef bundle, JobContext context, PPDRef ppd,
                     const ChoiceMenu& choices) {
    if (!menu || !bundle) return paramErr;
    EmptyMenu(menu);
    PPDPopulateMenuWithChoices(menu, ppd, choices.keyword, choices.command, Constraints::ignore);
    if (context == JobContext::job) return noErr;
    for (const SInt32 value : choices.jobOnly) DeleteItemOfValue(menu, value);
    return InsertUseJobSetting(menu, bundle, choices.command);
}

using PopulateSubmenu = OSStatus (*)(MenuRef, CFBundleRef, JobContext, PPDRef);

struct SubmenuRow {
    CFStringRef key;
    UInt32 command;
    PopulateSubmenu populate;
};

OSStatus AppendSubmenu(MenuRef menu, CFBundleRef bundle, JobContext context, PPDRef ppd,
                       const SubmenuRow& row) {
    UInt16 item = 0;
    const OSStatus status = AppendMenuItemTextWithCFString(menu, CopyText(bundle, row.key),
                                                           kMenuItemPlain, row.command, &item);
    if (status != noErr) return status;
    const MenuRef submenu = CreateNewMenu();
    row.populate(submenu, bundle, context, ppd);
    // A printer may know types and no colors, or colors and no types.
    if (CountMenuItems(submenu) == 0) DisableMenuItem(menu, item);
    return SetMenuItemHierarchicalMenu(menu, item, submenu);
}

OSStatus AppendInserter(MenuRef menu, CFBundleRef bundle) {
    UInt16 item = 0;
    const OSStatus status = AppendMenuItemTextWithCFString(
        menu, CopyInserterName(bundle), kMenuItemPlain, kStockSourceCommand, &item);
    return status == noErr ? SetMenuItemRefCon(menu, item, kStockSourceInserter) : status;
}

bool HasInserter(JobContext context) {
    return (context == JobContext::cover || context == JobContext::insert) &&
           getInstalledFeature(kInserterFeature);
}

bool IsChosen(const Stock& stock, UInt32 command, SInt32 value) {
    switch (command) {
        case kStockSizeCommand:
            return stock.size() == value;
        case kStockColorCommand:
            return stock.color() == value;
        case kStockTypeCommand:
            return stock.type() == value;
        case kStockSourceCommand:
            return stock.source() == value;
        default:
            return false;
    }
}

/// A mark at each item, in the submenus too, that says what the stock is.
void MarkStockMenu(MenuRef menu, const Stock& stock) {
    for (UInt16 item = 1; item <= CountMenuItems(menu); ++item) {
        if (const MenuRef submenu = GetMenuItemHierarchicalMenu(menu, item))
            MarkStockMenu(submenu, stock);
        else
            CheckMenuItem(menu, item,
                          IsChosen(stock, ItemCommand(menu, item), ItemValue(menu, item)));
    }
}

void MarkButtonsMenu(ControlRef button, const StockMenuHandlerData& data) {
    if (data.stock) MarkStockMenu(GetControlPopupMenu(button), *data.stock);
}

/// False when the user gave the choice up.
bool AskWhatElseIsNeeded(const StockMenuHandlerData& data, UInt32 command, SInt32 value) {
    const bool isCustomSize = command == kStockSizeCommand && value == kStockSizeCustom;
    return !isCustomSize || RunModalCustomSizeDialog(data.bundle, data.stock) == kModalOK;
}

OSStatus ChooseStockItem(EventRef event, const StockMenuHandlerData& data) {
    MenuRef menu = nullptr;
    UInt16 item = 0;
    if (!GetEventMenuItem(event, &menu, &item) || !data.stock) return eventNotHandledErr;
    const UInt32 command = GetEventCommand(event);
    const SInt32 value = ItemValue(menu, item);
    if (!AskWhatElseIsNeeded(data, command, value)) return noErr;
    if (!ApplyStockCommand(data.stock, command, value)) return eventNotHandledErr;
    MarkButtonsMenu(GetEventControl(event), data);
    if (data.changed) data.changed();
    return noErr;
}

OSStatus AnswerStockMenuEvent(EventRef event, const StockMenuHandlerData& data) {
    if (GetEventClass(event) == kEventClassCommand) return ChooseStockItem(event, data);
    // The owner may have put another stock in since the last choice.
    if (GetEventClass(event) == kEventClassMenu) MarkButtonsMenu(GetEventControl(event), data);
    return eventNotHandledErr;
}

}  // namespace

OSStatus PopulateStockSizeMenu(MenuRef menu, CFBundleRef bundle, JobContext context, PPDRef ppd) {
    return FillFromPPD(menu, bundle, context, ppd, {CFSTR("PageSize"), kStockSizeCommand, {}});
}

OSStatus PopulateStockColorMenu(MenuRef menu, CFBundleRef bundle, JobContext context, PPDRef ppd) {
    return FillFromPPD(menu, bundle, context, ppd,
                       {CFSTR("MediaColor"), kStockColorCommand, {kUnspecifiedColor}});
}

OSStatus PopulateStockTypeMenu(MenuRef menu, CFBundleRef bundle, JobContext context, PPDRef ppd) {
    return FillFromPPD(
        menu, bundle, context, ppd,
        {CFSTR("MediaType"), kStockTypeCommand, {kSystemDefaultType, kUnspecifiedType}});
}

OSStatus PopulateStockMenu(MenuRef menu, CFBundleRef bundle, JobContext context,
                           StockMenuHandlerData* data) {
    if (!menu || !bundle || !data) return paramErr;
    EmptyMenu(menu);
    const auto append = [&](const SubmenuRow& row) {
        AppendSubmenu(menu, bundle, context, data->ppd, row);
    };
    if (context != JobContext::job)
        append({CFSTR("OtherSize"), kStockSizeCommand, PopulateStockSizeMenu});
    append({CFSTR("OtherColor"), 0, PopulateStockColorMenu});
    append({CFSTR("OtherType"), 0, PopulateStockTypeMenu});
    OSStatus status = noErr;
    for (int line = 0; line < 2; ++line)
        status = AppendMenuItemTextWithCFString(menu, CFSTR("-"), kMenuItemSeparator, 0, nullptr);
    return HasInserter(context) ? AppendInserter(menu, bundle) : status;
}

OSStatus InitializeStockMenuButton(ControlRef button, StockMenuHandlerData* data) {
    if (!button || !data) return paramErr;
    const OSStatus status =
        PopulateStockMenu(GetControlPopupMenu(button), data->bundle, data->context, data);
    if (status != noErr) return status;
    MarkButtonsMenu(button, *data);
    constexpr EventTypeSpec kTypes[] = {{kEventClassCommand, kEventCommandProcess},
                                        {kEventClassMenu, kEventMenuPopulate}};
    return InstallControlEventHandler(button, StockMenuCommandEventHandler, std::size(kTypes),
                                      kTypes, data, &data->handler);
}

void FinalizeStockMenuButton(ControlRef, StockMenuHandlerData* data) {
    if (data) RemoveEventHandler(std::exchange(data->handler, nullptr));
}

OSStatus StockMenuCommandEventHandler(EventHandlerCallRef, EventRef event, void* data) {
    return WithoutExceptions(eventNotHandledErr, [&]() -> OSStatus {
        if (!data) return eventNotHandledErr;
        return AnswerStockMenuEvent(event, *static_cast<StockMenuHandlerData*>(data));
    });
}

bool ApplyStockCommand(Stock* stock, UInt32 command, SInt32 value) {
    switch (command) {
        case kStockSizeCommand:
            stock->setSize(value);
            stock->setCustomName(CFSTR(""));
            stock->setCustomNameOnly(false);
            break;
        case kStockColorCommand:
            stock->setColor(value);
            break;
        case kStockTypeCommand:
            stock->setType(value);
            break;
        case kStockSourceCommand:
            stock->setSource(value);
            return true;
        default:
            return false;
    }
    stock->setSource(kUnset);
    return true;
}

}  // namespace kalmo
