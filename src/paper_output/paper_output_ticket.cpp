#include <memory>

#include "paper_output/paper_output_record.h"
#include "settings/ppd_choices.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"

namespace kalmo {
namespace {

#define kFinishingBindValueKey CFSTR("com.kalmo.print.FinishingBindValue")
#define kFinishingCustomKey CFSTR("com.kalmo.print.FinishingCustom")

/// How a number is stored: as a whole number of the platform's, or of 32 bits.
enum class NumberKind { index, sint32 };

/// `missing`: what an absent key means. `isMeant` null: always read and written.
template <typename Record>
struct NumberRow {
    CFStringRef key;
    SInt32 Record::*field;
    SInt32 missing;
    NumberKind kind;
    bool (*isMeant)(const Record&) = nullptr;
};

bool HasSubsets(const Finishing& finishing) { return finishing.offsetSubsetEnabled != 0; }

// In this order: whether there are subsets is read before their length.
const NumberRow<Finishing> kFinishingRows[] = {
    {CFSTR("com.kalmo.print.FinishingOptions"), &Finishing::option, kOptionNone, NumberKind::index},
    {CFSTR("com.kalmo.print.FinishingOffset"), &Finishing::offset, 1, NumberKind::sint32},
    {CFSTR("com.kalmo.print.FinishingOffsetEnableSubset"), &Finishing::offsetSubsetEnabled, 0,
     NumberKind::sint32},
    {CFSTR("com.kalmo.print.FinishingOffsetPagesPerSubset"), &Finishing::offsetPagesPerSubset, 1,
     NumberKind::sint32, HasSubsets},
    {CFSTR("com.kalmo.print.FinishingSlipSheet"), &Finishing::slipSheet, 0, NumberKind::sint32},
};

const NumberRow<Booklet> kBookletRows[] = {
    {CFSTR("com.kalmo.print.BookletDrawOutlines"), &Booklet::drawOutlines, 0, NumberKind::index},
    {CFSTR("com.kalmo.print.Gutter"), &Booklet::gutter, 24, NumberKind::index},
    {CFSTR("com.kalmo.print.Creep"), &Booklet::creep, 0, NumberKind::index},
};

/// Two-sided printing in numbers; the first that the ticket has counts.
const CFStringRef kDuplexKeys[] = {CFSTR("com.kalmo.print.FinishingDuplex"),
                                   CFSTR("com.apple.print.PrintSettings.PMDuplexing")};

template <typename Record, std::size_t Count>
void ReadNumbers(PMTicketRef ticket, const NumberRow<Record> (&rows)[Count], Record* record) {
    for (const auto& row : rows) {
        if (row.isMeant && !row.isMeant(*record)) continue;
        record->*row.field = SInt32InTicket(ticket, row.key, row.missing);
    }
}

void WriteNumber(PMTicketRef ticket, CFStringRef key, SInt32 value, NumberKind kind) {
    if (kind == NumberKind::index)
        PMTicketSetCFIndex(ticket, kPrintingManagerCreator, key, value, false);
    else
        PMTicketSetSInt32(ticket, kPrintingManagerCreator, key, value, false);
}

template <typename Record, std::size_t Count>
void WriteNumbers(PMTicketRef ticket, const NumberRow<Record> (&rows)[Count],
                  const Record& record) {
    for (const auto& row : rows) {
        if (!row.isMeant || row.isMeant(record))
            WriteNumber(ticket, row.key, record.*row.field, row.kind);
    }
}

/// `otherwise` where neither ticket nor printer says anything.
SInt32 ReadChoice(const PaperOutputTickets& from, CFStringRef keyword, SInt32 otherwise) {
    SInt32 value = otherwise;
    PPDGetTicketValueForChoiceOrDefault(from.ppd, from.settings, keyword, &value);
    return value;
}

void WriteChoice(PMTicketRef settings, CFStringRef keyword, SInt32 value) {
    PPDSetCurrentChoice(settings, keyword, PPDChoiceForTicketValue(keyword, value));
}

/// The printer's choices say what lies in its trays: they win over the stored stock.
void ReadJobStock(const PaperOutputTickets& from, Stock* stock) {
    if (const auto* dictionary = DictionaryInTicket(from.settings, kJobLevelStockKey)) {
        *stock = Stock(dictionary);
    } else {
        Stock fresh;
        DefaultStock(&fresh, JobContext::job);
        *stock = fresh;
    }
    stock->setColor(ReadChoice(from, CFSTR("MediaColor"), stock->color()));
    stock->setType(ReadChoice(from, CFSTR("MediaType"), stock->type()));
}

/// Those of another ticket do not stay: a fax must not go to its recipients.
void ReadFax(PMTicketRef settings, PaperOutputRecord* record) {
    record->faxOptions = Owned<CFMutableDictionaryRef>();
    record->faxRecipients.reset();
    if (const auto* options = DictionaryInTicket(settings, kFaxOptionsKey)) {
        record->faxOptions = Owned<CFMutableDictionaryRef>::Adopt(
            CFDictionaryCreateMutableCopy(kCFAllocatorDefault, 0, options));
    }
    CFArrayRef recipients = nullptr;
    if (PMTicketGetCFArray(settings, kFaxRecipientListKey, &recipients) == noErr)
        record->faxRecipients = std::make_unique<FaxRecipientList>(recipients);
}

SInt32 ReadForcedSize(PMTicketRef settings) {
    if (!FlagInTicket(settings, kBookletForceNewSizeKey)) return kUnset;
    return SInt32InDictionary(DictionaryInTicket(settings, kJobLevelStockKey), CFSTR("Size"))
        .value_or(kUnset);
}

void ReadBooklet(PMTicketRef settings, Booklet* booklet) {
    booklet->mode = FlagInTicket(settings, kBookletLayoutKey) ? kBookletOn : kBookletOff;
    if (booklet->mode != kBookletOn) return;
    ReadNumbers(settings, kBookletRows, booklet);
    booklet->newSize = ReadForcedSize(settings);
}

/// While booklet layout is on, the stock's size in the ticket is the booklet's, or is left out: the
/// job's own paper, which comes back with the layout off, stays what it was.
void KeepOwnSize(const Stock& before, PaperOutputRecord* record) {
    Stock& stock = record->jobStock;
    const bool isBooklets = record->booklet.newSize != kUnset;
    if (!record->bookletIsOn() || (!isBooklets && stock.size() != kUnset)) return;
    stock.setSize(before.size());
    if (before.size() != kStockSizeCustom) return;
    stock.setWidth(before.width());
    stock.setLength(before.length());
}

SInt32 ReadDuplex(const PaperOutputTickets& from, SInt32 otherwise) {
    SInt32 duplex = 0;
    for (const CFStringRef key : kDuplexKeys)
        if (PMTicketGetSInt32(from.settings, key, &duplex) == noErr) return duplex;
    return ReadChoice(from, CFSTR("Duplex"), otherwise);
}

void ReadFinishing(const PaperOutputTickets& from, Finishing* finishing) {
    ReadNumbers(from.settings, kFinishingRows, finishing);
    finishing->coilPunch = finishing->option == kOptionCoilPunch;
    finishing->fold = ReadChoice(from, CFSTR("KLFold"), finishing->fold);
    finishing->punch = ReadChoice(from, CFSTR("KLPunch"), finishing->punch);
    SetStapleLocation(finishing, ReadChoice(from, CFSTR("StapleLocation"), kNoFinishing));
    CFStringRef custom = nullptr;
    PMTicketGetCFString(from.settings, kFinishingCustomKey, &custom);
    finishing->custom = Owned<CFStringRef>::Retain(custom);
}

/// While booklet layout is on, the size is the one that is forced on the pages, if any.
void WriteJobStock(PMTicketRef settings, const PaperOutputRecord& record) {
    Stock stock(record.jobStock);
    if (record.bookletIsOn()) stock.setSize(record.booklet.newSize);
    const auto dictionary = Owned<CFMutableDictionaryRef>::Adopt(stock.asTicket());
    PMTicketSetCFDictionary(settings, kPrintingManagerCreator, kJobLevelStockKey, dictionary,
                            false);
    WriteChoice(settings, CFSTR("MediaColor"), stock.color());
    WriteChoice(settings, CFSTR("MediaType"), stock.type());
}

void WriteJobType(PMTicketRef settings, const JobType& job) {
    const auto dictionary = Owned<CFMutableDictionaryRef>::Adopt(job.asTicket());
    PMTicketSetCFDictionary(settings, kPrintingManagerCreator, kJobTypeKey, dictionary, false);
}

void WriteFax(PMTicketRef settings, const PaperOutputRecord& record) {
    if (record.faxOptions) {
        PMTicketSetCFDictionary(settings, kPrintingManagerCreator, kFaxOptionsKey,
                                record.faxOptions, false);
    }
    if (!record.faxRecipients) return;
    const auto recipients = Owned<CFMutableArrayRef>::Adopt(record.faxRecipients->toTicket());
    PMTicketSetCFArray(settings, kPrintingManagerCreator, kFaxRecipientListKey, recipients, false);
}

void WriteBooklet(PMTicketRef settings, const Booklet& booklet) {
    if (booklet.mode != kBookletOn) return;
    WriteNumbers(settings, kBookletRows, booklet);
    PMTicketSetCFBoolean(settings, kPrintingManagerCreator, kBookletForceNewSizeKey,
                         booklet.newSize == kUnset ? kCFBooleanFalse : kCFBooleanTrue, false);
}

void WriteDuplex(PMTicketRef settings, SInt32 duplex, SidesPopup popup) {
    WriteChoice(settings, CFSTR("Duplex"), duplex);
    if (popup == SidesPopup::missing) return;
    for (const CFStringRef key : kDuplexKeys) WriteNumber(settings, key, duplex, NumberKind::index);
}

void WriteFinishing(PMTicketRef settings, const Finishing& finishing) {
    WriteNumbers(settings, kFinishingRows, finishing);
    WriteChoice(settings, CFSTR("KLFold"), finishing.fold);
    WriteChoice(settings, CFSTR("KLPunch"), finishing.punch);
    WriteChoice(settings, CFSTR("StapleLocation"), StapleLocation(finishing));
    WriteNumber(settings, kFinishingBindValueKey, finishing.bind, NumberKind::sint32);
    PMTicketSetCFString(settings, kPrintingManagerCreator, kFinishingCustomKey,
                        finishing.custom ? finishing.custom.get() : CFSTR(""), false);
}

}  // namespace

void ReadPaperOutput(PaperOutputRecord* record, const PaperOutputTickets& tickets) {
    record->orientation = SInt32InTicket(tickets.pageFormat, kOrientationKey, 1);
    const Stock before(record->jobStock);
    ReadJobStock(tickets, &record->jobStock);
    record->outputBin = ReadChoice(tickets, CFSTR("OutputBin"), record->outputBin);
    SyncSeparatorsFromTicket(tickets.settings, &record->separators);
    record->job.fromTicket(DictionaryInTicket(tickets.settings, kJobTypeKey));
    ReadFax(tickets.settings, record);
    ReadBooklet(tickets.settings, &record->booklet);
    KeepOwnSize(before, record);
    record->duplex = ReadDuplex(tickets, record->duplex);
    record->frontCover.reset();
    record->backCover.reset();
    ReadFinishing(tickets, &record->finishing);
}

OSStatus WritePaperOutput(const PaperOutputRecord& record, PMTicketRef settings, SidesPopup popup) {
    WriteJobStock(settings, record);
    WriteChoice(settings, CFSTR("OutputBin"), record.outputBin);
    const OSStatus status = SyncSeparatorsToTicket(settings, record.separators);
    WriteJobType(settings, record.job);
    WriteFax(settings, record);
    WriteBooklet(settings, record.booklet);
    WriteDuplex(settings, record.duplex, popup);
    WriteFinishing(settings, record.finishing);
    return status;
}

OSStatus WriteBookletLayout(PMTicketRef settings, bool on) {
    return PMTicketSetCFBoolean(settings, kPrintingManagerCreator, kBookletLayoutKey,
                                on ? kCFBooleanTrue : kCFBooleanFalse, false);
}

}  // namespace kalmo
