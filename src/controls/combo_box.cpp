#include "controls/combo_box.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/input_limits.h"
#include "foundation/locale.h"
#include "settings/dictionary.h"
#include "settings/user_preferences.h"
#include "shell/base/panel_interface.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

constexpr OSType kComboCreator = 'KCMB', kContextTag = 'ctxt';
constexpr SInt32 kUsualDigits = 9;

struct Item {
    SInt32 value = 0;
    Owned<CFStringRef> text;
};

/// What the control keeps, under the two tags above.
struct _KComboBoxContext {
    UInt32 kind = 0;
    Owned<CFStringRef> historyKey;
    SInt32 historyLimit = 0;
    SInt32 minimumLength = 0, maximumLength = 0;
    SInt32 minimumValue = 0, maximumValue = 0;
    Owned<CFCharacterSetRef> allowed;
    std::vector<Item> items;  // the fixed choices
    EventHandlerRef handler = nullptr;
};

OSStatus GetContext(ControlRef combo, _KComboBoxContext** context) {
    return GetControlProperty(combo, kComboCreator, kContextTag, sizeof *context, nullptr, context);
}

/// Takes it from the control; null when there is none.
std::unique_ptr<_KComboBoxContext> TakeContext(ControlRef combo) {
    _KComboBoxContext* context = nullptr;
    if (GetContext(combo, &context) != noErr) return nullptr;
    RemoveControlProperty(combo, kComboCreator, kContextTag);
    return std::unique_ptr<_KComboBoxContext>(context);
}

Owned<CFStringRef> TextOf(ControlRef combo) {
    return Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(combo));
}

Owned<CFNumberRef> CreateIndex(CFIndex value) {
    return Owned<CFNumberRef>::Adopt(
        CFNumberCreate(kCFAllocatorDefault, kCFNumberCFIndexType, &value));
}

/// In the user's locale; a fraction is cut, and what is too large held at the largest.
std::optional<CFIndex> NumberFromText(CFStringRef text) {
    constexpr double kBeyond = 0x1p63;
    const std::optional<double> number = CFLocaleNumberFromString(text);
    if (!number) return std::nullopt;
    return static_cast<CFIndex>(std::clamp(*number, -kBeyond, std::nextafter(kBeyond, 0.0)));
}

const Item* ItemWithText(const _KComboBoxContext& context, CFStringRef text) {
    const auto item = std::ranges::find_if(
        context.items, [text](const Item& each) { return CFEqual(each.text, text); });
    return item == context.items.end() ? nullptr : &*item;
}

/// Of several rows with one value, the first.
const Item* ItemWithValue(const _KComboBoxContext& context, CFNumberRef number) {
    CFIndex value = 0;
    if (!CFNumberGetValue(number, kCFNumberCFIndexType, &value)) return nullptr;
    const auto item = std::ranges::find_if(
        context.items, [value](const Item& each) { return each.value == value; });
    return item == context.items.end() ? nullptr : &*item;
}

SInt32 DigitsFor(SInt32 maximum) {
    return maximum >= 1 ? static_cast<SInt32>(std::to_string(maximum).size()) : kUsualDigits;
}

Owned<CFCharacterSetRef> CreateAllowedSet(CFTypeRef characters) {
    if (const auto string = ValueOfType<CFStringRef>(characters, CFStringGetTypeID())) {
        return Owned<CFCharacterSetRef>::Adopt(
            CFCharacterSetCreateWithCharactersInString(kCFAllocatorDefault, string));
    }
    return Owned<CFCharacterSetRef>::Retain(
        ValueOfType<CFCharacterSetRef>(characters, CFCharacterSetGetTypeID()));
}

std::unique_ptr<_KComboBoxContext> MakeContext(const _KComboBoxOptions& options) {
    auto context = std::make_unique<_KComboBoxContext>();
    context->kind = options.kind;
    context->historyKey = Owned<CFStringRef>::Retain(options.historyKey);
    context->historyLimit = options.historyLimit;
    context->minimumLength = options.minimumLength;
    context->maximumLength = options.maximumLength;
    context->minimumValue = options.minimumValue;
    context->maximumValue = options.maximumValue;
    if (options.kind == kComboBoxText) context->allowed = CreateAllowedSet(options.characters);
    if (options.kind == kComboBoxNumber) {
        context->maximumLength = DigitsFor(options.maximumValue);
        context->allowed = Owned<CFCharacterSetRef>::Retain(
            CFCharacterSetGetPredefined(kCFCharacterSetDecimalDigit));
    }
    return context;
}

bool IsValidNumber(const _KComboBoxContext& context, CFStringRef text) {
    const std::optional<CFIndex> number = NumberFromText(text);
    return number && *number >= context.minimumValue && *number <= context.maximumValue;
}

/// As for typing, a maximum below 1 is none.
bool IsValidText(const _KComboBoxContext& context, CFStringRef text) {
    const CFIndex length = CFStringGetLength(text);
    const bool fits = length >= context.minimumLength &&
                      (context.maximumLength < 1 || length <= context.maximumLength);
    return fits && (!context.allowed || CFCharacterSetContainsText(context.allowed, text));
}

bool IsValid(const _KComboBoxContext& context, CFStringRef text) {
    if (context.kind == kComboBoxNumber) return IsValidNumber(context, text);
    return context.kind != kComboBoxText || IsValidText(context, text);
}

/// The status of the last item.
OSStatus AppendChoices(ControlRef combo, _KComboBoxContext& context,
                       const _KComboBoxOptions& options) {
    OSStatus status = noErr;
    if (!options.map || !options.bundle) return status;
    for (const SettingMap* row = options.map; row->key && row->value != 0; ++row) {
        auto text = CopyText(options.bundle, row->key);
        status = AppendComboBoxItem(combo, text);
        if (status != noErr) return status;
        context.items.push_back({row->value, std::move(text)});
    }
    return status;
}

/// Lent by the preferences; null when the field has none.
CFArrayRef HistoryIn(CFDictionaryRef preferences, const _KComboBoxContext& context) {
    return ValueOfType<CFArrayRef>(CFDictionaryGetValue(preferences, context.historyKey),
                                   CFArrayGetTypeID());
}

/// What is no longer valid is not offered, but stays in the file. The status of the last item.
OSStatus AppendHistory(ControlRef combo, const _KComboBoxContext& context, OSStatus status) {
    const auto preferences = Owned<CFDictionaryRef>::Adopt(CopyUserPreferences(kInputHistoryFile));
    const CFArrayRef history = HistoryIn(preferences, context);
    for (CFIndex i = 0; i < CFArrayGetCount(history); ++i) {
        const auto entry =
            ValueOfType<CFStringRef>(CFArrayGetValueAtIndex(history, i), CFStringGetTypeID());
        if (entry && IsValid(context, entry)) status = AppendComboBoxItem(combo, entry);
    }
    return status;
}

OSStatus LimitInput(ControlRef combo, const _KComboBoxContext& context) {
    if (context.kind != kComboBoxNumber && context.kind != kComboBoxText) return noErr;
    return LimitInputLengthAndCharacters(combo, context.minimumLength, context.maximumLength,
                                         context.allowed);
}

/// Replaces a typed number that is out of range by the bound it passed; items are as they are.
void Validate(ControlRef combo, const _KComboBoxContext& context) {
    const auto text = TextOf(combo);
    if (context.kind != kComboBoxNumber || !text || ItemWithText(context, text)) return;
    const std::optional<CFIndex> typed = NumberFromText(text);
    if (!typed) return;
    if (*typed < context.minimumValue) {
        KComboBoxSetValue(combo, CreateIndex(context.minimumValue));
    } else if (*typed > context.maximumValue) {
        KComboBoxSetValue(combo, CreateIndex(context.maximumValue));
    }
}

OSStatus HandleEvent(EventHandlerCallRef, EventRef event, void*) {
    return WithoutExceptions(eventNotHandledErr, [&]() -> OSStatus {
        const ControlRef combo = GetEventControl(event);
        _KComboBoxContext* context = nullptr;
        if (GetEventKind(event) == kEventControlDispose) {
            TakeContext(combo).reset();
        } else if (!GetEventHasFocus(event) && GetContext(combo, &context) == noErr) {
            Validate(combo, *context);
        }
        return eventNotHandledErr;
    });
}

OSStatus InstallHandler(ControlRef combo, _KComboBoxContext& context) {
    constexpr EventTypeSpec kEvents[] = {{kEventClassControl, kEventControlSetFocusPart},
                                         {kEventClassControl, kEventControlDispose}};
    return InstallControlEventHandler(combo, HandleEvent, std::size(kEvents), kEvents, nullptr,
                                      &context.handler);
}

/// What a text that is neither empty nor an item stands for; null when it is no number though it
/// has to be.
Owned<CFTypeRef> TypedValue(const _KComboBoxContext& context, const Owned<CFStringRef>& text) {
    if (context.kind != kComboBoxNumber) return Owned<CFTypeRef>::Retain(text.get());
    const std::optional<CFIndex> number = NumberFromText(text);
    return number ? Owned<CFTypeRef>(CreateIndex(*number)) : Owned<CFTypeRef>();
}

/// Whether a fixed choice or an earlier input already says this.
bool IsOffered(ControlRef combo, CFStringRef text) {
    const UInt16 count = CountComboBoxItems(combo);
    for (UInt16 item = 1; item <= count; ++item)
        if (CFEqual(Owned<CFStringRef>::Adopt(CopyComboBoxItem(combo, item)), text)) return true;
    return false;
}

/// The file is read anew: another dialog may have written into it since this one began.
void Remember(const _KComboBoxContext& context, CFStringRef text) {
    const auto preferences =
        Owned<CFMutableDictionaryRef>::Adopt(CopyUserPreferences(kInputHistoryFile));
    const CFArrayRef stored = HistoryIn(preferences, context);
    const auto history = Owned<CFMutableArrayRef>::Adopt(
        stored ? CFArrayCreateMutableCopy(kCFAllocatorDefault, 0, stored)
               : CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks));
    CFArrayInsertValueAtIndex(history, 0, text);
    for (CFIndex count = CFArrayGetCount(history);
         context.historyLimit > 0 && count > context.historyLimit; --count)
        CFArrayRemoveValueAtIndex(history, count - 1);
    CFDictionarySetValue(preferences, context.historyKey, history.get());
    WriteUserPreferences(kInputHistoryFile, preferences);
}

}  // namespace

OSStatus KComboBoxInitializeWithMapAndHistory(KComboBox combo, const _KComboBoxOptions& options) {
    if (!combo) return paramErr;
    KComboBoxFinalize(combo, false);
    auto made = MakeContext(options);
    _KComboBoxContext* const context = made.get();
    OSStatus status =
        SetControlProperty(combo, kComboCreator, kContextTag, sizeof context, &context);
    if (status != noErr) return status;
    made.release();  // the control's, until Finalize or its own end
    InstallHandler(combo, *context);
    status = AppendChoices(combo, *context, options);
    LimitInput(combo, *context);
    return context->historyKey ? AppendHistory(combo, *context, status) : status;
}

OSStatus KComboBoxSetValue(KComboBox combo, CFTypeRef value) {
    if (!combo || !value) return paramErr;
    _KComboBoxContext* context = nullptr;
    if (const OSStatus status = GetContext(combo, &context); status != noErr) return status;
    if (const auto text = ValueOfType<CFStringRef>(value, CFStringGetTypeID()))
        SetControlTitleWithCFString(combo, text);
    const auto number = ValueOfType<CFNumberRef>(value, CFNumberGetTypeID());
    if (!number) return noErr;
    if (const Item* const item = ItemWithValue(*context, number)) {
        SetControlTitleWithCFString(combo, item->text);
        return noErr;
    }
    constexpr int kMostFractionDigits = 3;  // of a locale's decimal format
    double shown = 0;
    CFNumberGetValue(number, kCFNumberDoubleType, &shown);
    SetControlTitleWithCFString(combo, Owned<CFStringRef>::Adopt(CFLocaleCreateStringFromNumber(
                                           shown, 0, kMostFractionDigits)));
    return noErr;
}

OSStatus KComboBoxCopyValue(KComboBox combo, CFTypeRef* value) {
    if (!combo || !value) return paramErr;
    *value = nullptr;
    _KComboBoxContext* context = nullptr;
    if (const OSStatus status = GetContext(combo, &context); status != noErr) return status;
    Validate(combo, *context);
    const auto text = TextOf(combo);
    if (!text) return paramErr;
    if (CFStringGetLength(text) == 0) return kComboBoxEmpty;
    const Item* const item = ItemWithText(*context, text);
    *value =
        (item ? Owned<CFTypeRef>(CreateIndex(item->value)) : TypedValue(*context, text)).detach();
    return *value ? noErr : paramErr;
}

void KComboBoxFinalize(KComboBox combo, bool save) {
    const auto context = TakeContext(combo);
    if (!context) return;
    RemoveEventHandler(context->handler);
    const auto text = TextOf(combo);
    const bool isNew = text && CFStringGetLength(text) > 0 && !IsOffered(combo, text);
    if (save && context->historyKey && isNew) Remember(*context, text);
}

}  // namespace kalmo
