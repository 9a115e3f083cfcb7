// The user's languages, from the environment as the C library and gettext read it.
#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "foundation/bundle.h"

namespace {

void AddOnce(std::vector<std::string>& languages, const std::string& language) {
    if (!language.empty() && std::ranges::find(languages, language) == languages.end()) {
        languages.push_back(language);
    }
}

/// "de_AT.UTF-8@euro" adds "de-AT" and "de"; "C" and "POSIX" add nothing.
void AddLocale(std::vector<std::string>& languages, std::string locale) {
    locale = locale.substr(0, locale.find_first_of(".@"));
    if (locale.empty() || locale == "C" || locale == "POSIX" ||
        locale.find('/') != std::string::npos) {
        return;
    }
    std::ranges::replace(locale, '_', '-');
    AddOnce(languages, locale);
    AddOnce(languages, locale.substr(0, locale.find('-')));
}

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

}  // namespace

std::vector<std::string> PreferredLanguages() {
    std::vector<std::string> languages;
    std::string list = Environment("LANGUAGE");
    while (!list.empty()) {
        const std::size_t colon = list.find(':');
        AddLocale(languages, list.substr(0, colon));
        list = colon == std::string::npos ? "" : list.substr(colon + 1);
    }
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const std::string locale = Environment(name);
        if (locale.empty()) continue;
        AddLocale(languages, locale);
        break;
    }
    AddOnce(languages, "en");
    return languages;
}
