#include "special_pages/covers.h"

#include "settings/ticket.h"
#include "settings/ticket_keys.h"

namespace kalmo {
namespace {

#define kFrontCoverKey CFSTR("com.kalmo.print.SpecialPages.FrontCover")
#define kBackCoverKey CFSTR("com.kalmo.print.SpecialPages.BackCover")

OSStatus MissingIsNoFailure(OSStatus status) { return status == kPMKeyNotFound ? noErr : status; }

OSStatus WriteCover(PMTicketRef ticket, CFStringRef key, const Cover* cover) {
    if (!cover) return MissingIsNoFailure(PMTicketReleaseItem(ticket, key));
    const auto dictionary = Owned<CFMutableDictionaryRef>::Adopt(cover->asTicket());
    return PMTicketSetCFDictionary(ticket, kPrintCreator, key, dictionary, false);
}

OSStatus ReadCover(PMTicketRef ticket, CFStringRef key, std::unique_ptr<Cover>* cover) {
    CFDictionaryRef dictionary = nullptr;
    const OSStatus status = PMTicketGetCFDictionary(ticket, key, &dictionary);
    *cover = dictionary ? std::make_unique<Cover>(dictionary) : nullptr;
    return MissingIsNoFailure(status);
}

OSStatus ReadCovers(PMTicketRef ticket, std::unique_ptr<Cover>* front,
                    std::unique_ptr<Cover>* back) {
    const OSStatus status = ReadCover(ticket, kFrontCoverKey, front);
    // Front and back of a booklet are one sheet.
    if (!FlagInTicket(ticket, kBookletLayoutKey)) return ReadCover(ticket, kBackCoverKey, back);
    back->reset(*front ? (*front)->clone() : nullptr);
    return status;
}

}  // namespace

OSStatus SyncCovers(PMTicketRef ticket, Boolean direction, std::unique_ptr<Cover>* front,
                    std::unique_ptr<Cover>* back) {
    if (direction != kSyncToTicket) return ReadCovers(ticket, front, back);
    WriteCover(ticket, kFrontCoverKey, front->get());
    return WriteCover(ticket, kBackCoverKey, back->get());
}

}  // namespace kalmo
