#include "print_dialog/printer_requests.h"

#include <algorithm>
#include <span>

#include "print_dialog/destination_order.h"
#include "print_dialog/ppd_cache.h"
#include "print_dialog/print_server.h"
#include "print_dialog/remote_queue.h"

namespace kalmo {
namespace {

/// Of a PPD file; a list of printers has less to say.
constexpr std::chrono::milliseconds kFetchLimit(5000);

constexpr const char* kListAttributes[] = {
    "printer-name",  "printer-info",          "printer-location",          "printer-make-and-model",
    "printer-state", "printer-state-message", "printer-is-accepting-jobs", "device-uri"};
constexpr const char* kDescriptionAttributes[] = {"printer-make-and-model", "device-uri"};

void AddRequestedAttributes(ipp_t* request, std::span<const char* const> names) {
    ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(names.size()), nullptr, names.data());
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
    } else if (name == "device-uri") {
        const char* device = ippGetString(attribute, 0, nullptr);
        entry.isElsewhere = device && RemoteQueueOf(device);
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

/// Asking for a newer file only would save a tenth of a millisecond.
FetchedPPD FetchPPD(http_t* http, const std::string& queue) {
    return KeepPPD({queue, cupsServer(), ippPort()},
                   DownloadPPD(http, QueueResource(queue), Visitor::user, kFetchLimit),
                   SilentServerLine());
}

/// That of the server that the queue stands for comes first: the settings are its printer's.
FetchedPPD FetchPPD(http_t* http, const std::string& queue, const std::string& device) {
    const auto remote = RemoteQueueOf(device);
    if (!remote) return FetchPPD(http, queue);
    auto theirs = FetchRemotePPD(*remote);
    if (!theirs.path.empty()) return theirs;
    auto ours = FetchPPD(http, queue);
    return ours.path.empty() && ours.error.empty() ? theirs : ours;
}

}  // namespace

PrinterList FetchPrinterList() {
    PrinterList list;
    const auto http = ConnectToServer(Confidentiality::asConfigured, kListSilence, &list.error);
    if (!http) return list;
    auto request = NewRequest(IPP_OP_CUPS_GET_PRINTERS, {});
    AddRequestedAttributes(request.get(), kListAttributes);
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
    AddRequestedAttributes(request.get(), kDescriptionAttributes);
    const auto answer =
        Ask(http.get(), std::move(request), QueueResource(queue), &description.error);
    if (!answer) return description;
    const auto device = TextAttribute(answer.get(), "device-uri");
    auto ppd = FetchPPD(http.get(), queue, device);
    description.error = std::move(ppd.error);
    if (!description.error.empty()) return description;
    description.name = queue;
    description.makeAndModel = TextAttribute(answer.get(), "printer-make-and-model");
    description.ppdPath = std::move(ppd.path);
    description.note = std::move(ppd.note);
    description.clearHost = ClearHostOf(device);
    return description;
}

}  // namespace kalmo
