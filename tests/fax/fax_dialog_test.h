// Recipients written down in a test, and a dialog of the fax with some.
#pragma once

#include "fax/fax_recipients_model.h"
#include "paper_output/dialog_test.h"
#include "support/dictionaries.h"

namespace kalmo::test {

/// Lent by the list.
inline FaxRecipient* Append(FaxRecipientList& list, const std::string& fields) {
    auto* const made = new FaxRecipient(Dictionary(fields));
    list.append(made);
    FaxRecipientRelease(made);
    return made;
}

struct FaxDialogTest : DialogTest {
    FaxRecipient* append(const std::string& fields) { return Append(list, fields); }
    static bool HasFocus(QWidget& window, SInt32 id) {
        return window.focusWidget() == &Control(window, id);
    }

    FaxRecipientList list;
    FaxRecipientsModel model{.bundle = bundle, .list = &list};
};

}  // namespace kalmo::test
