// The dialog for a paper of a size of its own.
#pragma once

#include "paper_output/stock/stock.h"

namespace kalmo {

/// Asks for width and length in the user's unit and makes the stock's size custom. kModalOK, else
/// kModalCancel or the failure of the interface file, and nothing changed.
SInt32 RunModalCustomSizeDialog(CFBundleRef bundle, Stock* stock);

}  // namespace kalmo
