#include "paper_output/stock/separators.h"

#include <algorithm>
#include <span>

#include "paper_output/stock/stock_summary.h"
#include "settings/setting_maps.h"
#include "settings/ticket_keys.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

#define kSeparatorOptionKey CFSTR("com.kalmo.print.SeparatorOption")
#define kSeparatorStockKey CFSTR("com.kalmo.print.SeparatorStock")

// A separator is a sheet between pages of the job, as an exception is: its paper is the job's own
// until something else is chosen.
constexpr JobContext kSeparatorContext = JobContext::exception;

const SettingMap* FindOption(SInt32 option) {
    const auto rows = std::span(_SeparatorOptionMap, CountMaps(_SeparatorOptionMap));
    const auto row = std::ranges::find(rows, option, &SettingMap::value);
    return row == rows.end() ? nullptr : &*row;
}

Stock StockInTicket(PMTicketRef ticket) {
    CFDictionaryRef dictionary = nullptr;
    if (PMTicketGetCFDictionary(ticket, kSeparatorStockKey, &dictionary) == noErr)
        return Stock(dictionary);
    Stock stock;
    DefaultStock(&stock, kSeparatorContext);
    return stock;
}

/// "Separators: blank", and the paper behind it where it says something.
Owned<CFStringRef> SeparatorLines(CFBundleRef bundle, CFStringRef optionKey, const Stock& stock) {
    auto line = Owned<CFStringRef>::Adopt(CFStringCreateWithFormat(
        kCFAllocatorDefault, CopyText(bundle, CFSTR("SeparatorSummary")).get(),
        CopyText(bundle, optionKey).get()));
    const auto paper = Owned<CFStringRef>::Adopt(
        GenerateStockSummary(bundle, kSeparatorContext, stock, CFSTR(", ")));
    if (CFStringGetLength(paper) == 0) return line;
    return Owned<CFStringRef>::Adopt(
        CFStringCreateWithFormat(kCFAllocatorDefault, CFSTR("%@ (%@)"), line.get(), paper.get()));
}

}  // namespace

OSStatus SyncSeparatorsFromTicket(PMTicketRef ticket, Separators* separators) {
    SInt32 option = kNoSeparators;
    const OSStatus status = PMTicketGetSInt32(ticket, kSeparatorOptionKey, &option);
    separators->option = FindOption(option) ? option : kNoSeparators;
    separators->stock = StockInTicket(ticket);
    return status == kPMInvalidTicket ? status : noErr;
}

OSStatus SyncSeparatorsToTicket(PMTicketRef ticket, const Separators& separators) {
    PMTicketSetCFIndex(ticket, kPrintingManagerCreator, kSeparatorOptionKey, separators.option,
                       false);
    const auto stock = Owned<CFMutableDictionaryRef>::Adopt(separators.stock.asTicket());
    return PMTicketSetCFDictionary(ticket, kPrintingManagerCreator, kSeparatorStockKey, stock,
                                   false);
}

void AppendSeparatorSummary(ControlRef summary, CFBundleRef bundle, SInt32 separatorOption,
                            const Stock& separatorStock) {
    const SettingMap* option = FindOption(separatorOption);
    if (!option || option->value == kNoSeparators) return;
    const auto before = Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(summary));
    const auto lines = SeparatorLines(bundle, option->key, separatorStock);
    const auto text = Owned<CFStringRef>::Adopt(CFStringCreateWithFormat(
        kCFAllocatorDefault, CFStringGetLength(before) > 0 ? CFSTR("%@\n%@") : CFSTR("%2$@"),
        before.get(), lines.get()));
    SetControlTitleWithCFString(summary, text);
}

}  // namespace kalmo
