// The dialogs that add and edit covers, inserts and exceptions.
//
// They edit the model and call its `changed` when they have. kModalOK, kModalCancel (nothing is
// changed), or the failure of the interface file.
#pragma once

#include "special_pages/special_pages_model.h"

namespace kalmo {

/// Both covers; in a booklet the back cover is the front cover's. Saves no undo state (kept as it
/// is).
SInt32 RunModalCoversDialog(SpecialPagesModel* model, DialogMode mode);
/// `edited` (in the list; null for add) gives way to what is made of its pages.
SInt32 RunModalInsertsDialog(SpecialPagesModel* model, DialogMode mode, const Insert* edited);
SInt32 RunModalExceptionsDialog(SpecialPagesModel* model, DialogMode mode,
                                const ExceptionPage* edited);

}  // namespace kalmo
