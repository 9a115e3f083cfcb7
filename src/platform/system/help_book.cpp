#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <vector>

#include "system/presence.h"
#include "system/system.h"

namespace {

using std::filesystem::path;

/// Registered books: name to folder.
std::map<std::string, path>& Books() {
    static auto* const books = new std::map<std::string, path>;
    return *books;
}

const path* FolderOfBook(CFStringRef book) {
    const auto found = Books().find(CFStringToUTF8(book));
    return found == Books().end() ? nullptr : &found->second;
}

std::string InfoText(CFBundleRef bundle, CFStringRef key) {
    const CFTypeRef value = bundle ? CFBundleGetValueForInfoDictionaryKey(bundle, key) : nullptr;
    const bool isText = value && CFGetTypeID(value) == CFStringGetTypeID();
    return isText ? CFStringToUTF8(static_cast<CFStringRef>(value)) : "";
}

/// True for "a/b" and the like, that cannot lead out of where it starts.
bool StaysInside(const path& relative) {
    return !relative.empty() && !relative.is_absolute() &&
           std::ranges::find(relative, path("..")) == relative.end();
}

/// The page's file with all links resolved; nothing unless it is a file within the folder.
std::optional<path> PageFile(const path& folder, const path& page) {
    std::error_code missing;
    if (!StaysInside(page)) return {};
    const path root = std::filesystem::canonical(folder, missing);
    if (missing) return {};
    const path file = std::filesystem::canonical(folder / page, missing);
    if (missing || !std::filesystem::is_regular_file(file, missing)) return {};
    if (!StaysInside(file.lexically_relative(root))) return {};
    return file;
}

OSStatus ShowPage(const path& page, CFStringRef anchor) {
    const auto& show = CurrentPresence().helpPage;
    const auto text = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(page.string()));
    return show ? show(text, anchor) : fnfErr;
}

/// The book's pages in the order of their names.
std::vector<path> PagesOf(const path& folder) {
    std::vector<path> pages;
    std::error_code fault;
    for (std::filesystem::recursive_directory_iterator entry(folder, fault), end;
         !fault && entry != end; entry.increment(fault)) {
        if (entry->path().extension() != ".htm") continue;
        if (const auto page = PageFile(folder, entry->path().lexically_relative(folder))) {
            pages.push_back(*page);
        }
    }
    std::ranges::sort(pages);
    return pages;
}

bool HoldsAnchor(const path& page, const std::string& anchor) {
    std::ifstream file(page, std::ios::binary);
    const std::string text{std::istreambuf_iterator(file), {}};
    return std::ranges::any_of(
        std::initializer_list<std::string>{" name=", " id="}, [&](const std::string& attribute) {
            return text.find(attribute + '"' + anchor + '"') != std::string::npos;
        });
}

}  // namespace

OSStatus AHRegisterHelpBook(CFBundleRef bundle) {
    const std::string name = InfoText(bundle, CFSTR("CFBundleHelpBookName"));
    const std::string folder = InfoText(bundle, CFSTR("CFBundleHelpBookFolder"));
    if (name.empty() || !StaysInside(folder)) return fnfErr;
    const auto folderName = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(folder));
    const auto url =
        Owned<CFURLRef>::Adopt(CFBundleCopyResourceURL(bundle, folderName, nullptr, nullptr));
    if (!url) return fnfErr;
    const auto location = Owned<CFStringRef>::Adopt(CFURLCopyFileSystemPath(url));
    const path found = CFStringToUTF8(location);
    std::error_code missing;
    if (!std::filesystem::is_directory(found, missing)) return fnfErr;
    Books()[name] = found;
    return noErr;
}

OSStatus AHGotoPage(CFStringRef book, CFStringRef page, CFStringRef anchor) {
    const path* folder = FolderOfBook(book);
    if (!folder) return fnfErr;
    const auto file = PageFile(*folder, page ? CFStringToUTF8(page) : "index.htm");
    return file ? ShowPage(*file, anchor) : fnfErr;
}

OSStatus AHLookupAnchor(CFStringRef book, CFStringRef anchor) {
    const path* folder = FolderOfBook(book);
    const std::string sought = CFStringToUTF8(anchor);
    if (!folder || sought.empty()) return fnfErr;
    const std::vector<path> pages = PagesOf(*folder);
    const auto page =
        std::ranges::find_if(pages, [&](const path& p) { return HoldsAnchor(p, sought); });
    return page == pages.end() ? fnfErr : ShowPage(*page, anchor);
}
