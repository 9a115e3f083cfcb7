// The dialog's host object with a pane, and no window to be seen.
#pragma once

#include "print_dialog/print_job_host.h"
#include "support/qt_test.h"

namespace kalmo::test {

/// A host with a printer, and the hidden window its pane stands in.
struct HostedPane {
    explicit HostedPane(std::vector<std::string> panels = {}) : host(std::move(panels)) {
        SetWindowDefaultButton(WindowFromWidget(&window), ControlFromWidget(printButton));
        SetWindowCancelButton(WindowFromWidget(&window), ControlFromWidget(cancelButton));
        EXPECT_TRUE(host.load());
    }
    void choose(const std::filesystem::path& ppd) {
        EXPECT_TRUE(host.setPrinter({ppd.stem().string(), ppd.string()}));
    }
    OSStatus begin() { return host.begin(ControlFromWidget(pane)); }
    /// On a sample printer, up to Initialize; ends what was before.
    OSStatus beginOn(const char* sample = "kalmo-office-color") {
        host.end(noErr);
        choose(SamplePPD(sample));
        return begin();
    }

    QWidget window;
    QWidget* pane = new QWidget(&window);
    QPushButton* printButton = new QPushButton(&window);
    QPushButton* cancelButton = new QPushButton(&window);
    PrintJobHost host;
};

}  // namespace kalmo::test
