#include "print_dialog/printer_requests.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "print_dialog/destination_order.h"
#include "print_dialog/print_server.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr const char* kListAttributes[] = {
    "printer-name",  "printer-info",          "printer-location",         "printer-make-and-model",
    "printer-state", "printer-state-message", "printer-is-accepting-jobs"};

void AddRequestedAttributes(ipp_t* request) {
    ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(std::size(kListAttributes)), nullptr, kListAttributes);
}

/// One attribute of an answer that describes a printer.
void TakeAttribute(ipp_attribute_t* attribute, PrinterEntry& entry) {
    const std::string name = ippGetName(attribute);
    const std::pair<const char*, std::string*> texts[] = {
        {"printer-name", &entry.name},
        {"printer-info", &entry.info},
        {"printer-location", &entry.location},
        {"printer-make-and-model", &entry.makeAndModel},
        {"printer-state-message", &entry.stateMessage},
    };
    for (const auto& [key, text] : texts) {
        const char* value = key == name ? ippGetString(attribute, 0, nullptr) : nullptr;
        if (value) *text = value;
    }
    if (name == "printer-state") {
        entry.stopped = ippGetInteger(attribute, 0) == IPP_PSTATE_STOPPED;
    } else if (name == "printer-is-accepting-jobs") {
        entry.accepting = ippGetBoolean(attribute, 0) != 0;
    }
}

/// An answer holds one group of attributes per printer, with a nameless attribute between groups.
std::vector<PrinterEntry> TakePrinters(ipp_t* answer) {
    std::vector<PrinterEntry> printers;
    bool inPrinter = false;
    for (auto* attribute = ippFirstAttribute(answer); attribute;
         attribute = ippNextAttribute(answer)) {
        const bool belongs =
            ippGetGroupTag(attribute) == IPP_TAG_PRINTER && ippGetName(attribute) != nullptr;
        if (belongs && !inPrinter) printers.emplace_back();
        if (belongs) TakeAttribute(attribute, printers.back());
        inPrinter = belongs;
    }
    std::erase_if(printers, [](const PrinterEntry& entry) { return entry.name.empty(); });
    std::ranges::sort(printers, {}, &PrinterEntry::name);
    return printers;
}

std::filesystem::path CacheFolder() {
    const char* cache = std::getenv("XDG_CACHE_HOME");
    if (cache && cache[0] == '/') return std::filesystem::path(cache) / "kalmo-print";
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home ? home : "/nonexistent") / ".cache" / "kalmo-print";
}

/// Makes the folder, for nobody but the user.
bool MakePrivateFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder.parent_path(), error);
    mkdir(folder.c_str(), 0700);
    return chmod(folder.c_str(), 0700) == 0;
}

std::filesystem::path CachedPPD(const std::string& queue) {
    std::string name = queue + "@" + cupsServer() + ":" + std::to_string(ippPort()) + ".ppd";
    std::ranges::replace(name, '/', '_');
    return CacheFolder() / name;
}

struct FetchedPPD {
    std::string path;  // empty: the queue has none
    std::string error;
};

/// Fetched under a name of its own, so that whoever reads the older copy keeps it whole. Asking for
/// a newer file only would save a tenth of a millisecond.
FetchedPPD FetchPPD(http_t* http, const std::string& queue) {
    const auto copy = CachedPPD(queue);
    auto fetched = copy.string() + ".XXXXXX";
    const int file = MakePrivateFolder(copy.parent_path()) ? mkstemp(fetched.data()) : -1;
    if (file < 0) {
        return {{}, HostText("Folder unusable", {copy.parent_path().string()})};
    }
    const auto status = cupsGetFd(http, (QueueResource(queue) + ".ppd").c_str(), file);
    const bool written = close(file) == 0;
    if (status == HTTP_STATUS_OK && written && rename(fetched.c_str(), copy.c_str()) == 0) {
        return {copy.string(), {}};
    }
    unlink(fetched.c_str());
    if (status == HTTP_STATUS_NOT_FOUND) return {};
    if (status == HTTP_STATUS_OK) return {{}, HostText("No room for PPD")};
    return {{}, SilentServerLine()};
}

}  // namespace

PrinterList FetchPrinterList() {
    PrinterList list;
    const auto http = ConnectToServer(Confidentiality::asConfigured, kListSilence, &list.error);
    if (!http) return list;
    auto request = NewRequest(IPP_OP_CUPS_GET_PRINTERS, {});
    AddRequestedAttributes(request.get());
    const auto answer = Ask(http.get(), std::move(request), "/", &list.error);
    if (!answer) {
        // A server without a single queue says "not found".
        if (cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) list.error.clear();
        return list;
    }
    list.printers = TakePrinters(answer.get());
    const char* byDefault = cupsGetDefault2(http.get());
    for (auto& entry : list.printers) entry.isDefault = byDefault && entry.name == byDefault;
    list.destinations = ArrangedDestinations(list.printers);
    return list;
}

PrinterDescription FetchPrinterDescription(const std::string& queue) {
    PrinterDescription description;
    const auto http =
        ConnectToServer(Confidentiality::asConfigured, kListSilence, &description.error);
    if (!http) return description;
    auto request = NewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES, queue);
    AddRequestedAttributes(request.get());
    const auto answer =
        Ask(http.get(), std::move(request), QueueResource(queue), &description.error);
    if (!answer) return description;
    auto ppd = FetchPPD(http.get(), queue);
    description.error = std::move(ppd.error);
    if (!description.error.empty()) return description;
    description.name = queue;
    description.makeAndModel = TextAttribute(answer.get(), "printer-make-and-model");
    description.ppdPath = std::move(ppd.path);
    return description;
}

}  // namespace kalmo
