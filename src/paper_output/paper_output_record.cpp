#include "paper_output/paper_output_record.h"

#include <optional>

namespace kalmo {
namespace {

/// "Duplex" of the ticket before booklet layout was last turned on.
std::optional<SInt32> rememberedDuplex;

bool IsBookletFold(SInt32 fold) { return fold == kFoldBi || fold == kFoldBiStaple; }

/// A printer that says nothing about two-sided print is not asked for it.
void SetDuplex(PaperOutputRecord* record, SInt32 duplex) {
    if (record->duplex != 0) record->duplex = duplex;
}

void TurnLayoutOn(PaperOutputRecord* record, SInt32 ppdDuplex) {
    rememberedDuplex = ppdDuplex;
    SetDuplex(record, kTwoSidedShortEdge);
}

/// Nothing is remembered when the layout came on with a ticket: then as LeaveBooklet.
void TurnLayoutOff(PaperOutputRecord* record) {
    SetDuplex(record, rememberedDuplex.value_or(kTwoSidedLongEdge));
}

/// A folded booklet has no other finishing, and no sets within the set.
void FinishAsBooklet(Finishing* finishing) {
    finishing->option = kOptionBooklet;
    for (SInt32 Finishing::*selection :
         {&Finishing::singleStaple, &Finishing::dualStaple, &Finishing::multipleStaple,
          &Finishing::bind, &Finishing::punch, &Finishing::slipSheet}) {
        finishing->*selection = kNoFinishing;
    }
    finishing->coilPunch = false;
    finishing->offsetSubsetEnabled = 0;
    finishing->offset = 1;
}

}  // namespace

void LeaveBooklet(PaperOutputRecord* record) {
    if (record->bookletIsOn()) {
        record->booklet.mode = kBookletOff;
        SetDuplex(record, kTwoSidedLongEdge);
    }
    Finishing& finishing = record->finishing;
    if (finishing.option != kOptionBooklet) return;
    finishing.option = kOptionNone;
    finishing.fold = kNoFinishing;
}

void ApplyBookletChoice(PaperOutputRecord* record, const BookletChoice& choice, SInt32 ppdDuplex) {
    const bool wasOn = record->bookletIsOn();
    const bool wasFolded = IsBookletFold(record->finishing.fold);
    record->booklet = choice.booklet;
    record->finishing.fold = choice.fold;
    if (!wasOn && record->bookletIsOn()) TurnLayoutOn(record, ppdDuplex);
    if (wasOn && !record->bookletIsOn()) TurnLayoutOff(record);
    if (IsBookletFold(choice.fold))
        FinishAsBooklet(&record->finishing);
    else if (wasFolded)
        record->finishing.option = kOptionNone;
}

}  // namespace kalmo
