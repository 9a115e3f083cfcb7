// Reading the address book for the picker, and what there is to say about it.
#pragma once

#include <memory>

#include "contacts/address_book.h"
#include "fax/picker_candidates.h"
#include "foundation/bundle.h"

namespace kalmo {

struct PickerLoad {
    contacts::Answer answer;
    /// Null when the address book could not be read.
    std::shared_ptr<const PickerCandidates> candidates;
    bool isEmpty = true;  // not even a person without a telephone
    std::size_t passedOver = 0;
    /// The folder that stands in for the desktop's address book, and why; empty otherwise.
    std::string fallbackFolder;
    contacts::Code fallbackCode = contacts::Code::done;
};

[[nodiscard]] PickerWords CopyPickerWords(CFBundleRef bundle);
/// Not on the UI thread.
[[nodiscard]] PickerLoad LoadPicker(const contacts::Settings& settings, PickerWords words,
                                    const std::stop_token& stop);
/// Null when all is as expected.
[[nodiscard]] Owned<CFStringRef> CopyPickerNote(CFBundleRef bundle, const PickerLoad& load);

}  // namespace kalmo
