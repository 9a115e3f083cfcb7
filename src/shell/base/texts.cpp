#include "shell/base/texts.h"

#include <cstdio>

namespace kalmo {
namespace {

void ReportMissingText(CFStringRef key, CFStringRef table) {
    const std::string tableName = table ? CFStringToUTF8(table) : "Localizable";
    std::fprintf(stderr, "No text in table \"%s\" for key \"%s\"\n", tableName.c_str(),
                 CFStringToUTF8(key).c_str());
}

}  // namespace

Owned<CFStringRef> CopyTextIfPresent(CFBundleRef bundle, CFStringRef key, CFStringRef table) {
    if (!bundle || !key) return {};
    const CFStringRef notFound = CFSTR(kStringNotFound);
    auto text =
        Owned<CFStringRef>::Adopt(CFBundleCopyLocalizedString(bundle, key, notFound, table));
    return !text || CFEqual(text, notFound) ? Owned<CFStringRef>() : text;
}

Owned<CFStringRef> CopyText(CFBundleRef bundle, CFStringRef key, CFStringRef table) {
    if (auto text = CopyTextIfPresent(bundle, key, table)) return text;
    ReportMissingText(key, table);
    return Owned<CFStringRef>::Retain(CFSTR(kStringNotFound));
}

}  // namespace kalmo
