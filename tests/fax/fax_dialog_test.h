// A dialog of the fax, with recipients and somebody who answers questions.
#pragma once

#include <deque>

#include "fax/fax_recipients_model.h"
#include "paper_output/dialog_test.h"
#include "support/dictionaries.h"

namespace kalmo::test {

struct FaxDialogTest : DialogTest {
    FaxDialogTest() {
        Presence presence = CurrentPresence();
        presence.alert = [this](const AlertTexts& texts) {
            notices.push_back(CFStringToUTF8(texts.message));
            if (answers.empty()) return false;
            const bool answer = answers.front();
            answers.pop_front();
            return answer;
        };
        InstallPresence(presence);
    }
    /// Lent by the list.
    FaxRecipient* append(const std::string& fields) {
        auto* const made = new FaxRecipient(Dictionary(fields));
        list.append(made);
        FaxRecipientRelease(made);
        return made;
    }
    std::string lastNotice() const { return notices.empty() ? "" : notices.back(); }
    static bool HasFocus(QWidget& window, SInt32 id) {
        return window.focusWidget() == &Control(window, id);
    }

    std::deque<bool> answers;  // to questions; none: the other button
    FaxRecipientList list;
    FaxRecipientsModel model{.bundle = bundle, .list = &list};
};

}  // namespace kalmo::test
