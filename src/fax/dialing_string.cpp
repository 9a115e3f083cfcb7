#include "fax/dialing_string.h"

#include <string>

namespace kalmo {
namespace {

/// Made with the plug-in, and gone with it.
const auto kDialingCharacters = Owned<CFCharacterSetRef>::Adopt(
    CFCharacterSetCreateWithCharactersInString(kCFAllocatorDefault, kFaxDialingCharacters));

}  // namespace

const CFCharacterSetRef kFaxDialingCharacterSet = kDialingCharacters;

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
