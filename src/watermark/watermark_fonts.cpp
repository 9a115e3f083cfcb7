#include "watermark/watermark_fonts.h"

#include "graphics/fonts.h"
#include "toolbox/menus.h"

namespace kalmo {
namespace {

void Append(MenuRef menu, CFStringRef text) {
    AppendMenuItemTextWithCFString(menu, text, kMenuItemPlain, 0, nullptr);
}

CFStringRef TextAt(CFArrayRef texts, CFIndex index) {
    return static_cast<CFStringRef>(CFArrayGetValueAtIndex(texts, index));
}

ATSFontRef FontNamed(CFStringRef postScriptName) {
    return ATSFontFindFromPostScriptName(postScriptName, 0);
}

Owned<CFStringRef> StyleOf(CFStringRef postScriptName) {
    return Owned<CFStringRef>::Adopt(ATSFontCopyStyleName(FontNamed(postScriptName)));
}

Owned<CFStringRef> ChosenText(ControlRef popup) {
    return Owned<CFStringRef>::Adopt(CopyMenuItemTextAsCFString(
        GetControlPopupMenu(popup), static_cast<UInt16>(GetControl32BitValue(popup))));
}

/// False, with nothing changed, when there is no such item.
bool ChooseText(ControlRef popup, CFStringRef text) {
    const MenuRef menu = GetControlPopupMenu(popup);
    for (UInt16 item = 1; text && item <= CountMenuItems(menu); ++item) {
        const auto found = Owned<CFStringRef>::Adopt(CopyMenuItemTextAsCFString(menu, item));
        if (!found || !CFEqual(found, text)) continue;
        SetControl32BitValue(popup, item);
        return true;
    }
    return false;
}

}  // namespace

FontMenus::FontMenus(ControlRef families, ControlRef styles)
    : families_(families), styles_(styles) {
    const auto names = Owned<CFArrayRef>::Adopt(ATSFontCopyFamilies());
    const MenuRef menu = GetControlPopupMenu(families);
    for (CFIndex i = 0; i < CFArrayGetCount(names); ++i) Append(menu, TextAt(names, i));
    SetControl32BitMaximum(families, CountMenuItems(menu));
}

void FontMenus::show(CFStringRef postScriptName) {
    const ATSFontRef font = FontNamed(postScriptName);
    const auto family = Owned<CFStringRef>::Adopt(ATSFontCopyFamilyName(font));
    if (!ChooseText(families_, family)) SetControl32BitValue(families_, 0);
    listFaces(family);
    const auto used = Owned<CFStringRef>::Adopt(ATSFontCopyPostScriptName(font));
    for (CFIndex i = 0; used && i < CFArrayGetCount(faces_); ++i) {
        if (CFEqual(TextAt(faces_, i), used))
            SetControl32BitValue(styles_, static_cast<SInt32>(i) + 1);
    }
}

void FontMenus::familyWasChosen() {
    const Owned<CFStringRef> family = ChosenText(families_), style = ChosenText(styles_);
    listFaces(family);
    if (!ChooseText(styles_, style)) SetControl32BitValue(styles_, 1);
}

CFStringRef FontMenus::chosen() const {
    const CFIndex index = CFIndex{GetControl32BitValue(styles_)} - 1;
    return faces_ && index >= 0 && index < CFArrayGetCount(faces_) ? TextAt(faces_, index)
                                                                   : nullptr;
}

void FontMenus::listFaces(CFStringRef family) {
    faces_ = Owned<CFArrayRef>::Adopt(ATSFontCopyFacesOfFamily(family ? family : CFSTR("")));
    const MenuRef menu = GetControlPopupMenu(styles_);
    DeleteMenuItems(menu, 1, CountMenuItems(menu));
    for (CFIndex i = 0; i < CFArrayGetCount(faces_); ++i) Append(menu, StyleOf(TextAt(faces_, i)));
    SetControl32BitMaximum(styles_, CountMenuItems(menu));
}

}  // namespace kalmo
