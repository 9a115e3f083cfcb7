#include "foundation/character_set.h"

#include <unicode/uchar.h>
#include <unicode/uniset.h>

#include "foundation/string_private.h"

struct CFCharacterSetObject final : kalmo::foundation::Object {
    explicit CFCharacterSetObject(const icu::UnicodeSet& members);
    icu::UnicodeSet set;  // frozen: read from any thread
};

namespace {

using kalmo::foundation::Object;

const icu::UnicodeSet& SetOf(const Object* object) {
    return static_cast<const CFCharacterSetObject*>(object)->set;
}

/// Shares the string's characters: valid as long as the string.
icu::UnicodeString Shared(CFStringRef string) {
    return {false, string->text.data(), static_cast<int32_t>(string->text.size())};
}

const kalmo::foundation::TypeRecord kCharacterSetType{
    "character set", [](const Object* a, const Object* b) { return SetOf(a) == SetOf(b); },
    [](const Object* value) { return static_cast<std::size_t>(SetOf(value).hashCode()); },
    [](const Object* value) {
        icu::UnicodeString pattern;
        std::string text;
        return SetOf(value).toPattern(pattern, true).toUTF8String(text);
    }};

/// Kept for ever. ICU's tables of general categories do not fail.
CFCharacterSetRef MakeConstant(const char16_t* pattern) {
    UErrorCode status = U_ZERO_ERROR;
    auto* const constant = new CFCharacterSetObject(icu::UnicodeSet(pattern, status));
    constant->makeImmortal();
    return constant;
}

}  // namespace

CFCharacterSetObject::CFCharacterSetObject(const icu::UnicodeSet& members)
    : Object(kCharacterSetType), set(members) {
    set.freeze();
}

CFTypeID CFCharacterSetGetTypeID() { return kalmo::foundation::IdOf(kCharacterSetType); }

CFCharacterSetRef CFCharacterSetGetPredefined(CFCharacterSetPredefinedSet which) {
    static const CFCharacterSetRef controls = MakeConstant(u"[:Cc:]");
    static const CFCharacterSetRef digits = MakeConstant(u"[:Nd:]");
    switch (which) {
        case kCFCharacterSetControl:
            return controls;
        case kCFCharacterSetDecimalDigit:
            return digits;
    }
    return nullptr;
}

CFCharacterSetRef CFCharacterSetCreateWithCharactersInString(CFAllocatorRef,
                                                             CFStringRef characters) {
    icu::UnicodeSet members;
    if (characters) members.addAll(Shared(characters));
    return new CFCharacterSetObject(members);
}

Boolean CFCharacterSetIsCharacterMember(CFCharacterSetRef set, UniChar character) {
    return set && set->set.contains(UChar32{character});
}

SInt32 CFCharacterGetDigitValue(UniChar character) { return u_charDigitValue(UChar32{character}); }

Boolean CFCharacterSetContainsText(CFCharacterSetRef set, CFStringRef text) {
    return set && text && set->set.containsAll(Shared(text));
}
