// What of a fax number is dialed, and how much of it there may be.
#pragma once

#include "fax/fax_recipient_list.h"
#include "foundation/character_set.h"

namespace kalmo {

#define kFaxDialingCharacters CFSTR("0123456789*#=:!,/S$<>ABCD")
/// Exactly those characters.
extern const CFCharacterSetRef kFaxDialingCharacterSet;
/// 0 to 9, of which a mailbox and a credit card number consist.
extern const CFCharacterSetRef kFaxDigitSet;

/// Prefix, credit card number and fax number together; so many are allowed.
inline constexpr CFIndex kMaxDialingString = 50;
inline constexpr SInt32 kMaxFaxNumber = 50, kMaxMailbox = 4, kMaxDialingPrefix = 4,
                        kMaxCreditCard = 16;

/// The dialing characters of the number in their order, and nothing else. The caller releases it.
[[nodiscard]] CFStringRef CopyDialingStringFromFaxNumber(CFStringRef faxNumber);

}  // namespace kalmo
