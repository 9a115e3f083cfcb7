// A dialog of the fax, with recipients. Nobody agrees to what it asks.
#pragma once

#include "fax/fax_recipients_model.h"
#include "paper_output/dialog_test.h"
#include "support/dictionaries.h"

namespace kalmo::test {

struct FaxDialogTest : DialogTest {
    /// Lent by the list.
    FaxRecipient* append(const std::string& fields) {
        auto* const made = new FaxRecipient(Dictionary(fields));
        list.append(made);
        FaxRecipientRelease(made);
        return made;
    }
    static bool HasFocus(QWidget& window, SInt32 id) {
        return window.focusWidget() == &Control(window, id);
    }

    FaxRecipientList list;
    FaxRecipientsModel model{.bundle = bundle, .list = &list};
};

}  // namespace kalmo::test
