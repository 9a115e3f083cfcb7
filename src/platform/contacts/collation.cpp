#include "contacts/collation.h"

#include <unicode/coll.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>

namespace contacts {

namespace {

bool IsASCII(std::string_view text) {
    return std::ranges::none_of(text, [](char c) { return (c & 0x80) != 0; });
}

icu::UnicodeString FromUTF8(std::string_view text) {
    return icu::UnicodeString::fromUTF8({text.data(), static_cast<int32_t>(text.size())});
}

/// As it was when that fails.
icu::UnicodeString Composed(const icu::UnicodeString& text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* const composer = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status)) return text;
    icu::UnicodeString composed = composer->normalize(text, status);
    return U_FAILURE(status) ? text : composed;
}

std::string LocaleName() {
    for (const char* variable : {"LC_ALL", "LC_COLLATE", "LANG"}) {
        const char* const value = std::getenv(variable);
        if (value && *value) return value;
    }
    return "";
}

/// Null when there is none for the locale.
std::unique_ptr<icu::Collator> NewCollator(const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const bool plain =
        locale.empty() || locale == "POSIX" || locale == "C" || locale.starts_with("C.");
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(
        plain ? icu::Locale::getRoot() : icu::Locale::createCanonical(locale.c_str()), status));
    return U_SUCCESS(status) ? std::move(collator) : nullptr;
}

/// Of each thread, since making one takes long.
const icu::Collator* CollatorOfUser() {
    thread_local std::map<std::string, std::unique_ptr<icu::Collator>> collators;
    const auto [place, isNew] = collators.try_emplace(LocaleName());
    if (isNew) place->second = NewCollator(place->first);
    return place->second.get();
}

}  // namespace

std::string Folded(std::string_view text) {
    std::string folded;
    if (IsASCII(text)) {
        folded = text;
        std::ranges::transform(folded, folded.begin(), [](char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        });
        return folded;
    }
    // Folding can take a composed character apart.
    Composed(Composed(FromUTF8(text)).foldCase(U_FOLD_CASE_DEFAULT)).toUTF8String(folded);
    return folded;
}

std::string SortKey(std::string_view text) {
    const icu::Collator* const collator = CollatorOfUser();
    if (!collator) return Folded(text);
    const icu::UnicodeString characters = FromUTF8(text);
    std::string key(text.size() * 2 + 16, '\0');
    const auto room = [&] { return static_cast<int32_t>(key.size()); };
    const auto bytes = [&] { return reinterpret_cast<uint8_t*>(key.data()); };
    int32_t size = collator->getSortKey(characters, bytes(), room());
    if (size > room()) {
        key.resize(static_cast<std::size_t>(size));
        size = collator->getSortKey(characters, bytes(), room());
    }
    // The key ends in a zero byte, which is no part of the order.
    key.resize(static_cast<std::size_t>(std::max(size - 1, 0)));
    return key;
}

}  // namespace contacts
