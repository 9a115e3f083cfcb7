#include "fax/dialing_string.h"

#include <string>

namespace kalmo {
namespace {

Owned<CFCharacterSetRef> SetOf(CFStringRef characters) {
    return Owned<CFCharacterSetRef>::Adopt(
        CFCharacterSetCreateWithCharactersInString(kCFAllocatorDefault, characters));
}

/// Made with the plug-in, and gone with it.
const auto kDialingCharacters = SetOf(kFaxDialingCharacters);
const auto kDigits = SetOf(CFSTR("0123456789"));

}  // namespace

const CFCharacterSetRef kFaxDialingCharacterSet = kDialingCharacters;
const CFCharacterSetRef kFaxDigitSet = kDigits;

CFStringRef CopyDialingStringFromFaxNumber(CFStringRef faxNumber) {
    std::basic_string<UniChar> dialed;
    for (CFIndex i = 0; i < CFStringGetLength(faxNumber); ++i) {
        const UniChar character = CFStringGetCharacterAtIndex(faxNumber, i);
        if (CFCharacterSetIsCharacterMember(kFaxDialingCharacterSet, character))
            dialed += character;
    }
    return CFStringCreateWithCharacters(kCFAllocatorDefault, dialed.data(),
                                        static_cast<CFIndex>(dialed.size()));
}

}  // namespace kalmo
