// A PPD file of any bytes behind the calls that read it: open, texts, choices, menus' conversions,
// installable options, constraints.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "printing/ppd_conflicts.h"
#include "printing/ppd_papers.h"
#include "printing/session.h"
#include "settings/installable_options.h"
#include "settings/ppd_access.h"
#include "settings/ppd_choices.h"
#include "shell/base/current_session.h"

namespace {

using namespace kalmo;

/// The bytes as a file that has a path and no name.
class MemoryFile final {
public:
    MemoryFile(const std::uint8_t* bytes, std::size_t size) : file_(memfd_create("ppd", 0)) {
        whole_ = write(file_, bytes, size) == static_cast<ssize_t>(size);
    }
    ~MemoryFile() { close(file_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    [[nodiscard]] bool isWhole() const { return whole_; }
    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(file_); }

private:
    int file_;
    bool whole_;
};

Owned<PMPrintSession> SessionWithPPD(const std::string& path) {
    auto session = Owned<PMPrintSession>::Adopt(PMSessionCreate());
    const auto name = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(path));
    const auto url =
        Owned<CFURLRef>::Adopt(CFURLCreateWithFileSystemPath(kCFAllocatorDefault, name, false));
    const auto printer = Owned<PMPrinter>::Adopt(PMPrinterCreate(name, url));
    PMSessionSetCurrentPrinter(session, printer);
    return session;
}

void ReadOption(PPDRef ppd, PMTicketRef ticket, CFStringRef keyword) {
    PPDMarkDefaults(ppd);
    PPDForEachChoice(ppd, keyword, [&](const char* option, const char* choice, const char*) {
        PPDMarkChoice(ppd, option, choice);
        const auto text = Owned<CFStringRef>::Adopt(
            CFStringCreateWithCString(kCFAllocatorDefault, choice, PPDGetEncoding(ppd)));
        if (const auto value = FindTicketValueForChoice(keyword, text))
            PPDSetCurrentChoice(ticket, keyword, PPDChoiceForTicketValue(keyword, *value));
        const auto shown = Owned<CFStringRef>::Adopt(PPDCopyChoiceText(ppd, keyword, text));
    });
    SInt32 value = 0;
    PPDGetTicketValueForChoiceOrDefault(ppd, ticket, keyword, &value);
}

/// The last choice of each option: what the defaults rarely are.
void EndConflicts(const std::string& path) {
    const auto rules = PPDConstraints::Open(path, nullptr);
    const auto description = ReadPPDDescription(path, nullptr);
    if (!rules || !description) return;
    std::vector<PPDSelection> chosen = {{"PageSize", "Custom.100x200"}, {"", "{}"}};
    for (const PPDOptionTexts& option : description->options)
        if (!option.choices.empty())
            chosen.push_back({option.keyword, option.choices.back().keyword});
    const auto changes = rules->resolution(chosen);
    if (!changes) return;
    chosen.insert(chosen.end(), changes->begin(), changes->end());
    if (!rules->conflicts(chosen).empty()) std::abort();
}

}  // namespace

// libcups itself loses a few bytes of files that name a thing twice; looking for them after each
// input costs 25 times as long as the input. The tests look for leaks of our own.
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    if (!file.isWhole()) return 0;
    const auto session = SessionWithPPD(file.path());
    KalmoPDEInitialize(nullptr, nullptr, nullptr, nullptr, session);
    if (const PPDRef ppd = PPDGetCurrent()) {
        (void)PPDManufacturer(ppd);
        LoadInstallableOptions(ppd, InstalledFeatures);
        for (const auto* feature = InstalledFeatures; feature->feature; ++feature)
            (void)getInstalledFeature(feature->feature);
        for (const MainKeywordRow* row = MainKeywordMap; row->keyword; ++row)
            ReadOption(ppd, PMSessionGetTicket(session, kPMPrintSettingsTicket), row->keyword);
    }
    EndConflicts(file.path());
    UnloadInstallableOptions();
    PPDCloseCurrent();
    KalmoPDETerminate(nullptr, noErr);
    return 0;
}
