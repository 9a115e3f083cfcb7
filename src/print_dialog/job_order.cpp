#include "print_dialog/job_order.h"

#include <algorithm>

#include "foundation/collections.h"
#include "job_ticket/attachment.h"
#include "print_dialog/server_encryption.h"
#include "print_dialog/session_tickets.h"
#include "print_dialog/window_texts.h"
#include "printing/ticket.h"

namespace kalmo {
namespace {

using Options = std::vector<std::pair<std::string, std::string>>;

/// The server gives all options to its filters as one argument, which Linux limits to 128 KiB.
constexpr std::size_t kMostOptionBytes = 100 << 10;

void AddPrinterChoices(const PrintJobHost& host, Options& options) {
    const auto* description = host.description();
    if (!description) return;
    if (const auto paper = host.ppdChoice("PageSize"); !paper.empty()) {
        options.emplace_back("PageSize", paper);
    }
    for (const auto& option : description->options) {
        const auto choice = host.ppdChoice(option.keyword);
        if (!choice.empty() && option.keyword != "PageSize") {
            options.emplace_back(option.keyword, choice);
        }
    }
}

/// Of the options and the papers.
void AddTexts(const PrintJobHost& host, std::vector<PPDOptionTexts>& texts) {
    const auto* description = host.description();
    if (!description) return;
    texts = description->options;
    PPDOptionTexts papers{.keyword = "PageSize", .text = HostText("Sent paper")};
    for (const auto& paper : description->papers) {
        papers.choices.push_back({paper.keyword, paper.text});
    }
    texts.push_back(std::move(papers));
}

void AddCopies(const JobSettings& settings, Options& options) {
    if (settings.copies > 1) {
        options.emplace_back("copies", std::to_string(settings.copies));
        options.emplace_back("multiple-document-handling",
                             settings.collate ? "separate-documents-collated-copies"
                                              : "separate-documents-uncollated-copies");
    }
}

/// The server would count sheets where a sheet holds several pages, and a folder counts nothing.
void AddPages(const JobSettings& settings, const JobRequest& request, JobOrder& order) {
    const auto layout = request.layout.jobOptions();
    order.options.insert(order.options.end(), layout.begin(), layout.end());
    if (settings.pages.empty()) return;
    if (!request.folder.empty() || request.layout.pagesPerSheet() > 1) {
        order.pages = settings.pages;
    } else {
        order.options.emplace_back("page-ranges", PageRangesText(settings.pages));
    }
}

/// A queue without a PPD file knows papers and sources by the protocol's names alone.
void AddPaperWithoutPPD(const PrintJobHost& host, Options& options) {
    if (host.description()) return;
    const auto& settings = host.settings();
    if (!settings.paper.empty()) options.emplace_back("media", settings.paper);
}

std::string TicketWithNonce(const PrintJobHost& host) {
    const auto nonce = job_ticket::MakeNonce();
    const auto data = Owned<CFDataRef>::Adopt(
        CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(nonce.data()),
                     static_cast<CFIndex>(nonce.size())));
    const auto key = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(job_ticket::kNonceKey));
    const auto extra =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    CFDictionarySetValue(extra, key.get(), data.get());
    return host.ticketFile(extra.get());
}

std::size_t TotalBytes(const Options& options) {
    std::size_t total = 0;
    for (const auto& [name, value] : options) total += name.size() + value.size() + 2;
    return total;
}

}  // namespace

Outcome MakeJobOrder(const PrintJobHost& host, const JobRequest& request, JobOrder* order) {
    *order = {.document = request.document,
              .name = request.name,
              .queue = request.queue,
              .folder = request.folder};
    order->title = host.jobName().empty() ? "document" : host.jobName();
    AddCopies(host.settings(), order->options);
    AddPages(host.settings(), request, *order);
    AddPrinterChoices(host, order->options);
    AddTexts(host, order->texts);
    AddPaperWithoutPPD(host, order->options);
    if (TotalBytes(order->options) > kMostOptionBytes) {
        return {HostText("Too many settings")};
    }
    if (!host.hasPane()) return {};
    order->ticket = TicketWithNonce(host);
    if (order->ticket.empty()) return {HostText("Ticket not written")};
    order->secret = HoldsSecrets(host.session());
    if (order->secret && request.folder.empty()) {
        if (auto why = WhyNotPassedOn(host.printer().clearHost); !why.empty()) return {why};
    }
    order->options.emplace_back(job_ticket::kDigestOption, job_ticket::TicketDigest(order->ticket));
    return {};
}

}  // namespace kalmo
