#include "settings/ppd_menus.h"

#include <cstdio>

#include "settings/ppd_choices.h"

namespace kalmo {
namespace {

struct OfferedChoice {
    const char* keyword;
    const char* text;
    CFStringEncoding encoding;
};

/// The choice's text, or its keyword where the text is missing or not in the PPD's encoding.
Owned<CFStringRef> TextOf(const OfferedChoice& offered) {
    if (!*offered.text) return Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(offered.keyword));
    auto text = Owned<CFStringRef>::Adopt(
        CFStringCreateWithCString(kCFAllocatorDefault, offered.text, offered.encoding));
    return text ? text : Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(offered.keyword));
}

void AppendChoice(MenuRef menu, CFStringRef mainKeyword, const OfferedChoice& offered,
                  UInt32 command) {
    const auto choice = Owned<CFStringRef>::Adopt(
        CFStringCreateWithCString(kCFAllocatorDefault, offered.keyword, offered.encoding));
    const std::optional<SInt32> value = FindTicketValueForChoice(mainKeyword, choice);
    if (!value) {
        std::fprintf(stderr, "Skipped unrecognized choice in PPD: %s\n", offered.keyword);
        return;
    }
    UInt16 item = 0;
    if (AppendMenuItemTextWithCFString(menu, TextOf(offered), kMenuItemPlain, command, &item) ==
        noErr)
        SetMenuItemRefCon(menu, item, *value);
}

}  // namespace

SInt32 PPDPopulateMenuWithChoices(MenuRef menu, PPDRef ppd, CFStringRef keyword, UInt32 command,
                                  Constraints constraints) {
    if (!menu || !ppd || !keyword) return 0;
    const bool respect = constraints == Constraints::respect;
    if (respect) PPDMarkDefaults(ppd);
    DeleteMenuItems(menu, 1, CountMenuItems(menu));
    const CFStringEncoding encoding = PPDGetEncoding(ppd);
    const bool found = PPDForEachChoice(
        ppd, keyword, [&](const char* option, const char* choice, const char* text) {
            // Each choice stays marked while the next one is tried, and every conflict of the
            // PPD counts: with defaults that conflict already, nothing is offered.
            if (respect && PPDMarkChoice(ppd, option, choice) > 0) return;
            AppendChoice(menu, keyword, {choice, text, encoding}, command);
        });
    if (!found)
        std::fprintf(stderr, "Expected PPD option not found: %s\n",
                     CFStringToUTF8(keyword).c_str());
    return CountMenuItems(menu);
}

SInt32 PPDPopulatePopupWithChoices(ControlRef popup, PPDRef ppd, CFStringRef keyword,
                                   Constraints constraints) {
    const MenuRef menu = popup ? GetControlPopupMenu(popup) : nullptr;
    if (!menu || !ppd || !keyword) return 0;
    const SInt32 count = PPDPopulateMenuWithChoices(menu, ppd, keyword, 0, constraints);
    SetControl32BitMaximum(popup, count);
    return count;
}

}  // namespace kalmo
