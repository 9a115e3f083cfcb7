#include "foundation/bundle.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "foundation/bundle_private.h"
#include "foundation/property_list.h"
#include "foundation/url_private.h"

namespace {

using kalmo::foundation::FilePathOf;
using kalmo::foundation::FileURLOf;

const kalmo::foundation::TypeRecord kBundleType{"bundle", nullptr, nullptr, nullptr};

/// The living bundles; each leaves when its last holder releases it.
std::vector<CFBundleObject*>& Bundles() {
    static auto& bundles = *new std::vector<CFBundleObject*>;
    return bundles;
}

CFURLRef FolderURL(const std::filesystem::path& path) {
    return FileURLOf(path.string(), true).detach();
}

Owned<CFDataRef> ReadData(const std::filesystem::path& path) {
    const auto url = FileURLOf(path.string(), false);
    Owned<CFDataRef> data;
    CFURLCreateDataAndPropertiesFromResource(kCFAllocatorDefault, url, data.adopt(), nullptr);
    return data;
}

Owned<CFDictionaryRef> ReadInfo(const std::filesystem::path& folder) {
    const auto data = ReadData(folder / "Contents/Info.plist");
    auto list = Owned<CFPropertyListRef>::Adopt(
        data ? CFPropertyListCreateFromXMLData(kCFAllocatorDefault, data, kCFPropertyListImmutable,
                                               nullptr)
             : nullptr);
    if (!list || CFGetTypeID(list) != CFDictionaryGetTypeID()) return {};
    return Owned<CFDictionaryRef>::Adopt(static_cast<CFDictionaryRef>(list.detach()));
}

std::string Text(CFStringRef string) { return CFStringToUTF8(string); }

/// Every fault of a table starts so.
constexpr std::string_view kLine = "line ";

/// A name with a folder in it could leave the bundle.
bool IsPlainName(const std::string& name) {
    return !name.empty() && name.find('/') == std::string::npos && name != "." && name != "..";
}

}  // namespace

CFBundleObject::CFBundleObject(std::filesystem::path bundleFolder, CFDictionaryRef infoDictionary)
    : Object(kBundleType),
      folder(std::move(bundleFolder)),
      info(Owned<CFDictionaryRef>::Retain(infoDictionary)) {
    Bundles().push_back(this);
}

CFBundleObject::~CFBundleObject() { std::erase(Bundles(), this); }

std::filesystem::path CFBundleObject::executable() const {
    const std::string name = infoText(CFSTR("CFBundleExecutable"));
    return IsPlainName(name) ? folder / "Contents/Linux" / (name + ".so") : std::filesystem::path();
}

std::string CFBundleObject::infoText(CFStringRef key) const {
    const CFTypeRef value = CFDictionaryGetValue(info, key);
    if (!value || CFGetTypeID(value) != CFStringGetTypeID()) return {};
    return Text(static_cast<CFStringRef>(value));
}

const StringsTable* CFBundleObject::table(const std::string& language, const std::string& name) {
    const auto [found, isNew] = tables.try_emplace({language, name});
    if (isNew && IsPlainName(language) && IsPlainName(name)) {
        const auto file = resources() / (language + ".lproj") / (name + ".strings");
        if (const auto data = ReadData(file)) {
            found->second = ReadStringsTable({reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
                                              static_cast<std::size_t>(CFDataGetLength(data))});
            for (const std::string& fault : found->second.faults) {
                // "line 12: ..." becomes "FILE:12: ...", which editors jump to.
                std::fprintf(stderr, "%s:%s\n", file.c_str(), fault.c_str() + kLine.size());
            }
        }
    }
    return &found->second;
}

CFTypeID CFBundleGetTypeID() { return kalmo::foundation::IdOf(kBundleType); }

CFBundleRef CFBundleCreate(CFAllocatorRef, CFURLRef folder) {
    const auto given = FilePathOf(folder);
    if (!given) return nullptr;
    std::error_code error;
    const auto path = std::filesystem::weakly_canonical(*given, error);
    if (error) return nullptr;
    for (CFBundleObject* bundle : Bundles()) {
        if (bundle->folder == path) {
            CFRetain(bundle);
            return bundle;
        }
    }
    const auto info = ReadInfo(path);
    return info ? new CFBundleObject(path, info) : nullptr;
}

CFBundleRef CFBundleGetBundleWithIdentifier(CFStringRef identifier) {
    if (!identifier) return nullptr;
    const std::string sought = Text(identifier);
    const auto found = std::ranges::find_if(Bundles(), [&](const CFBundleObject* bundle) {
        return bundle->infoText(CFSTR("CFBundleIdentifier")) == sought;
    });
    return found == Bundles().end() ? nullptr : *found;
}

CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef bundle, CFStringRef key) {
    return bundle ? CFDictionaryGetValue(bundle->info, key) : nullptr;
}

CFURLRef CFBundleCopyBundleURL(CFBundleRef bundle) {
    return bundle ? FolderURL(bundle->folder) : nullptr;
}

CFURLRef CFBundleCopyResourcesDirectoryURL(CFBundleRef bundle) {
    return bundle ? FolderURL(bundle->resources()) : nullptr;
}

CFURLRef CFBundleCopyBuiltInPlugInsURL(CFBundleRef bundle) {
    return bundle ? FolderURL(bundle->folder / "Contents/PlugIns") : nullptr;
}

CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type,
                                 CFStringRef subfolder) {
    if (!bundle || !name) return nullptr;
    const std::string ending = Text(type);
    const std::string file = Text(name) + (ending.empty() ? "" : "." + ending);
    const auto below = std::filesystem::path(Text(subfolder)) / file;
    const std::string text = below.string();
    if (below.is_absolute() || text.empty() || text.find("..") != std::string::npos) return nullptr;
    std::vector<std::filesystem::path> places{bundle->resources()};
    for (const std::string& language : PreferredLanguages()) {
        places.push_back(bundle->resources() / (language + ".lproj"));
    }
    for (const auto& place : places) {
        std::error_code error;
        if (!std::filesystem::exists(place / below, error)) continue;
        return FileURLOf((place / below).string(),
                         std::filesystem::is_directory(place / below, error))
            .detach();
    }
    return nullptr;
}

CFStringRef CFBundleCopyLocalizedString(CFBundleRef bundle, CFStringRef key, CFStringRef value,
                                        CFStringRef table) {
    if (!key) return value ? CFStringCreateCopy(kCFAllocatorDefault, value) : nullptr;
    const std::string name = Text(table).empty() ? "Localizable" : Text(table);
    const std::string sought = Text(key);
    if (bundle) {
        for (const std::string& language : PreferredLanguages()) {
            const auto& texts = bundle->table(language, name)->texts;
            if (const auto found = texts.find(sought); found != texts.end()) {
                return CFStringCreateFromUTF8(found->second);
            }
        }
    }
    return CFStringCreateCopy(kCFAllocatorDefault, value ? value : key);
}
