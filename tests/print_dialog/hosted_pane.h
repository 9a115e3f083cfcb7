// A host with a printer, and the hidden window its pane stands in.
#pragma once

#include "print_dialog/print_job_host.h"
#include "support/qt_test.h"
#include "support/ticket_files.h"

namespace kalmo::test {

struct HostedPane {
    explicit HostedPane(std::vector<std::string> panels = {}) : host(std::move(panels)) {
        SetWindowDefaultButton(WindowFromWidget(&window), ControlFromWidget(printButton));
        SetWindowCancelButton(WindowFromWidget(&window), ControlFromWidget(cancelButton));
        loaded = host.load().error;
    }
    std::string choose(const std::filesystem::path& ppd) {
        return host.setPrinter({ppd.stem().string(), ppd.string()}).error;
    }
    OSStatus begin() { return host.begin(ControlFromWidget(pane)); }
    /// With the sample color printer, up to Initialize.
    OSStatus beginOnSample() {
        choose(SamplePPD("kalmo-office-color"));
        return begin();
    }

    QWidget window;
    QWidget* pane = new QWidget(&window);
    QPushButton* printButton = new QPushButton(&window);
    QPushButton* cancelButton = new QPushButton(&window);
    PrintJobHost host;
    std::string loaded;
};

}  // namespace kalmo::test
