// How long a text field's text may be and what it may hold.
#pragma once

#include "foundation/character_set.h"
#include "toolbox/events.h"

namespace kalmo {

/// Sent to the field, class 'KPDE', after each input: now empty, shorter than the minimum (1 when
/// there is none), or long enough.
inline constexpr UInt32 kEventClassInputCheck = 'KPDE';
inline constexpr UInt32 kEventInputEmpty = 'ICno';
inline constexpr UInt32 kEventInputTooShort = 'ICfw';
inline constexpr UInt32 kEventInputLongEnough = 'ICso';

/// Input that would go beyond beeps and is swallowed. A length below 1 removes that limit, a null
/// set the set, which is retained until the field goes. In UTF-16 units.
OSStatus LimitInputLengthAndCharacters(ControlRef field, SInt32 minimumLength, SInt32 maximumLength,
                                       CFCharacterSetRef allowed);
/// Which of the three events fits what the field holds now: for a dialog that is about to open.
[[nodiscard]] UInt32 CheckInput(ControlRef field);
OSStatus LimitInputEventHandler(EventHandlerCallRef next, EventRef event, void* unused);

}  // namespace kalmo
