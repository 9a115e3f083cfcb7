// Sets of characters, for what a text may hold.
#pragma once

#include "foundation/string.h"

enum CFCharacterSetPredefinedSet : CFIndex {
    /// Control characters (U+0000 to U+001F, U+007F to U+009F).
    kCFCharacterSetControl = 1,
    /// Decimal digits of any script.
    kCFCharacterSetDecimalDigit = 4,
};

#pragma GCC visibility push(default)

[[nodiscard]] CFTypeID CFCharacterSetGetTypeID();
/// Lent.
[[nodiscard]] CFCharacterSetRef CFCharacterSetGetPredefined(CFCharacterSetPredefinedSet which);
/// The characters of the string. The caller releases it.
[[nodiscard]] CFCharacterSetRef CFCharacterSetCreateWithCharactersInString(CFAllocatorRef,
                                                                           CFStringRef characters);
/// False for null.
[[nodiscard]] Boolean CFCharacterSetIsCharacterMember(CFCharacterSetRef set, UniChar character);
/// 0 to 9 for a decimal digit of any script, else -1.
[[nodiscard]] SInt32 CFCharacterGetDigitValue(UniChar character);
/// Whether every character of the text lies in the set; true for an empty text.
[[nodiscard]] Boolean CFCharacterSetContainsText(CFCharacterSetRef set, CFStringRef text);

#pragma GCC visibility pop
