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
    FaxDialogTest() {
        Presence presence = CurrentPresence();
        presence.alert = [this](const AlertTexts& texts) {
            questions.push_back(CFStringToUTF8(texts.message));
            return agrees;
        };
        InstallPresence(presence);
    }
    FaxRecipient* append(const std::string& fields) { return Append(list, fields); }
    static bool HasFocus(QWidget& window, SInt32 id) {
        return window.focusWidget() == &Control(window, id);
    }

    /// What was asked, and whether that is agreed to.
    std::vector<std::string> questions;
    bool agrees = false;
    FaxRecipientList list;
    FaxRecipientsModel model{.bundle = bundle, .list = &list};
};

}  // namespace kalmo::test
