#include "print_dialog/list_printers.h"

#include <algorithm>
#include <cstdio>

#include "print_dialog/pane_survey.h"
#include "print_dialog/wait_for_answer.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

/// A server's words must not steer a terminal.
std::string Printable(std::string text) {
    std::ranges::replace_if(
        text, [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
    return text;
}

}  // namespace

ExitCode ListPrinters() {
    Printers printers;
    const auto list = WaitForAnswer<PrinterList>([&](auto answer) { printers.list(answer); });
    if (!list.error.empty()) {
        PrintMessage(list.error);
        return kExitFailed;
    }
    if (list.printers.empty()) PrintMessage(HostText("No printers"));
    const auto panes = PaneSurvey(list.printers).run(kServerDeadlineMs);
    for (std::size_t i = 0; i < panes.size(); ++i) {
        const PrinterEntry& entry = list.printers[i];
        std::printf("%c %s\t%s\t%s\tpane: %s\n", entry.isDefault ? '*' : ' ',
                    Printable(entry.name).c_str(), Printable(entry.makeAndModel).c_str(),
                    Printable(entry.info).c_str(), Printable(panes[i]).c_str());
    }
    return kExitDone;
}

}  // namespace kalmo
