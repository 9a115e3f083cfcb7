// The panel's record: everything it keeps in the ticket, and how it gets there and back.
//
// No control is known here. What a control decides (whether the popup of sides exists) is said by
// the caller.
#pragma once

#include <memory>

#include "fax/fax_recipient_list.h"
#include "paper_output/finishing.h"
#include "paper_output/job_type.h"
#include "paper_output/stock/separators.h"
#include "paper_output/stock/stock.h"
#include "settings/ppd_access.h"
#include "special_pages/covers.h"

namespace kalmo {

inline constexpr SInt32 kBookletOn = 1, kBookletOff = 2;
inline constexpr SInt32 kOneSided = 1, kTwoSidedLongEdge = 2, kTwoSidedShortEdge = 3;

/// Booklet layout; gutter and creep in pt.
struct Booklet {
    SInt32 mode = kBookletOff;
    SInt32 drawOutlines = 0;
    SInt32 newSize = kUnset;  // a value of _PageSizeMap; kUnset: the job's own paper
    SInt32 gutter = 24, creep = 0;
};

struct PaperOutputRecord {
    SInt32 orientation = 1;
    Stock jobStock;
    Separators separators;
    SInt32 outputBin = 0;
    JobType job;
    Owned<CFMutableDictionaryRef> faxOptions;         // null: none
    std::unique_ptr<FaxRecipientList> faxRecipients;  // null: none
    Booklet booklet;
    SInt32 duplex = 0;
    Finishing finishing;
    FinishingDevices devices;
    std::unique_ptr<Cover> frontCover, backCover;

    [[nodiscard]] bool bookletIsOn() const { return booklet.mode == kBookletOn; }
};

/// Where the record comes from. The PPD is lent and may be null.
struct PaperOutputTickets {
    PPDRef ppd = nullptr;
    PMTicketRef settings = kPMNoTicket, pageFormat = kPMNoTicket;
};

/// All but the covers, which are dropped: a missing key or one of the wrong kind takes the default.
/// What stays as it is when missing: fax data, the keys of a booklet while there is none, and what
/// the printer has no option for.
void ReadPaperOutput(PaperOutputRecord* record, const PaperOutputTickets& tickets);

enum class SidesPopup { missing, exists };
/// All but the covers and the layout switch of a booklet. The status of the separators.
OSStatus WritePaperOutput(const PaperOutputRecord& record, PMTicketRef settings, SidesPopup popup);
/// "com.kalmo.print.BookletLayout".
OSStatus WriteBookletLayout(PMTicketRef settings, bool on);

/// Leaves booklet mode: two-sided on the long edge, and no booklet fold.
void LeaveBooklet(PaperOutputRecord* record);

/// What the booklet dialog gives back.
struct BookletChoice {
    Booklet booklet;
    SInt32 fold = 0;
};
/// Takes the dialog's choice over: sides, finishing and offset follow. `ppdDuplex`, the value of
/// "Duplex" in the ticket now, is remembered when the layout is turned on, one value for the whole
/// process, and restored when it is turned off here.
void ApplyBookletChoice(PaperOutputRecord* record, const BookletChoice& choice, SInt32 ppdDuplex);

}  // namespace kalmo
