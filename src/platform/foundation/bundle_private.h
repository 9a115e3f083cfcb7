// The bundle object. Private to the platform library.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "foundation/bundle.h"
#include "foundation/object_private.h"
#include "foundation/strings_table.h"

struct CFBundleObject final : kalmo::foundation::Object {
    CFBundleObject(std::filesystem::path bundleFolder, CFDictionaryRef infoDictionary);
    ~CFBundleObject() override;

    [[nodiscard]] std::filesystem::path resources() const { return folder / "Contents/Resources"; }
    [[nodiscard]] std::filesystem::path executable() const;
    /// The value when it is a string; empty otherwise.
    [[nodiscard]] std::string infoText(CFStringRef key) const;
    /// Read once; null when the language has no such table.
    const StringsTable* table(const std::string& language, const std::string& name);

    std::filesystem::path folder;
    Owned<CFDictionaryRef> info;
    void* handle = nullptr;  // of the executable; never closed
    std::map<std::pair<std::string, std::string>, StringsTable> tables;
};
