#include "print_dialog/list_printers.h"

#include <cerrno>
#include <cstdio>

#include "print_dialog/pane_survey.h"
#include "print_dialog/private_folder.h"
#include "print_dialog/text_limits.h"
#include "print_dialog/wait_for_answer.h"
#include "print_dialog/window_texts.h"

namespace kalmo {

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
                    WithoutControls(entry.name).c_str(),
                    WithoutControls(entry.makeAndModel).c_str(),
                    WithoutControls(entry.info).c_str(), WithoutControls(panes[i]).c_str());
    }
    if (std::fflush(stdout) == 0) return kExitDone;
    PrintMessage(SystemReason(HostText("Standard output"), errno));
    return kExitFailed;
}

}  // namespace kalmo
