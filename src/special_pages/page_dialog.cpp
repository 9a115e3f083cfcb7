#include "special_pages/page_dialog.h"

#include "controls/input_limits.h"
#include "controls/pictures.h"
#include "paper_output/stock/stock_summary.h"
#include "settings/dictionary.h"
#include "settings/setting_menus.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

/// More than anybody types, and little enough to be read at once.
constexpr SInt32 kLongestPages = 2000;

/// The paper that comes out: the job's, where this one says nothing.
void FillFromJob(Stock* stock, const Stock* job) {
    if (!job || stock->source() != kUnset) return;
    if (stock->color() == kUnset) stock->setColor(job->color());
    if (stock->type() == kUnset) stock->setType(job->type());
}

}  // namespace

void PaperField::setUp(WindowRef window, const IDs& ids, std::function<void()> changed) {
    const auto control = [window](SInt32 id) {
        ControlRef found = nullptr;
        GetControlByID(window, {kDialogSignature, id}, &found);
        return found;
    };
    summary_ = control(ids.summary);
    picture_ = control(ids.picture);
    menu_.bundle = model_.bundle;
    menu_.ppd = model_.ppd;
    menu_.changed = [this, changed = std::move(changed)] {
        show();
        if (changed) changed();
    };
    InitializeStockMenuButton(control(ids.menu), &menu_);
    constexpr EventTypeSpec kDraw = {kEventClassControl, kEventControlDraw};
    InstallControlEventHandler(picture_, StockIconEventHandler, 1, &kDraw, &shown_, nullptr);
    show();
}

void PaperField::show() {
    shown_ = *stock_;
    FillFromJob(&shown_, model_.jobStock.get());
    ShowStockSummary(model_.bundle, summary_, stock_, menu_.context);
    auto words = Owned<CFStringRef>::Adopt(
        GenerateStockSummary(model_.bundle, menu_.context, shown_, CFSTR(", ")));
    if (CFStringGetLength(words) == 0)
        words = Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(summary_));
    SetControlAccessibleDescription(picture_, words);
    SetControlNeedsDisplay(picture_);
}

void FillPopup(CFBundleRef bundle, ControlRef popup, const SettingMap* map, JobSetting unset) {
    PopulatePopupButtonFromMap(bundle, popup, map, JobContext::cover, 0);
    if (unset == JobSetting::first) InsertJobSetting(bundle, popup);
}

void InsertJobSetting(CFBundleRef bundle, ControlRef popup) {
    const MenuRef menu = GetControlPopupMenu(popup);
    InsertMenuItemTextWithCFString(menu, CopyText(bundle, CFSTR("UseJobSetting")), 0,
                                   kMenuItemPlain, 0);
    SetMenuItemRefCon(menu, 1, kUnset);
    SetControl32BitMaximum(popup, CountMenuItems(menu));
}

void ChooseInPopup(CFBundleRef bundle, ControlRef popup, SInt32 value, Owned<CFStringRef> text) {
    if (SetPopupButtonToTicketValue(popup, value)) return;
    if (!text) {
        const auto format = CopyText(bundle, CFSTR("Special Page Other Setting"));
        text = Owned<CFStringRef>::Adopt(
            CFStringCreateWithFormat(kCFAllocatorDefault, format.get(), CreateNumber(value).get()));
    }
    UInt16 item = 0;
    const MenuRef menu = GetControlPopupMenu(popup);
    AppendMenuItemTextWithCFString(menu, text, kMenuItemPlain, 0, &item);
    SetMenuItemRefCon(menu, item, value);
    SetControl32BitMaximum(popup, item);
    SetControl32BitValue(popup, item);
}

void PageDialog::showLayers() {
    TextParts words;
    for (const Layer& layer : layers()) {
        if (layer.descriptionKey)
            words.add(CopyText(bundle(), CFStringMakeConstant(layer.descriptionKey)));
    }
    const auto description = Owned<CFStringRef>::Adopt(words.joined(CFSTR(", ")));
    SetControlAccessibleDescription(control(kPictureID), description);
    SetControlNeedsDisplay(control(kPictureID));
}

OSStatus PageDialog::draw(SInt32 id, EventRef event) {
    if (id != kPictureID) return eventNotHandledErr;
    for (const Layer& layer : layers()) DrawImage(event, CFStringMakeConstant(layer.picture));
    return noErr;
}

void PageDialog::setUpPages(SInt32 field, CFStringRef text) const {
    const auto allowed = Owned<CFCharacterSetRef>::Adopt(
        CFCharacterSetCreateWithCharactersInString(kCFAllocatorDefault, CFSTR("0123456789, -")));
    LimitInputLengthAndCharacters(control(field), 0, kLongestPages, allowed);
    SetControlTitleWithCFString(control(field), text);
    select(field);
}

std::optional<std::vector<PageRange>> PageDialog::readPages(SInt32 field, bool byRange) const {
    const auto text = Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(control(field)));
    std::vector<PageRange> ranges;
    const OSStatus code = CreatePageRangesBySeparatingString(text, byRange, &ranges);
    if (code == noErr) return ranges;
    refusePages(field, code);
    return {};
}

void PageDialog::refusePages(SInt32 field, OSStatus code) const {
    SpecialPagesUserNotification(code, bundle());
    select(field);
}

void PageDialog::select(SInt32 field) const {
    const auto text = Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(control(field)));
    SetKeyboardFocus(control(field));
    SetControlTextSelection(control(field), {0, CFStringGetLength(text)});
}

}  // namespace kalmo
