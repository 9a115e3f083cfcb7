// PPD files made for a test, and a dialog whose printer has one.
#pragma once

#include "printing/session.h"
#include "settings/installable_options.h"
#include "settings/ppd_access.h"
#include "shell/base/current_session.h"
#include "support/qt_test.h"

namespace kalmo::test {

inline std::string InstallableGroup(const std::string& options) {
    return "*OpenGroup: InstallableOptions/Options\n" + options +
           "*CloseGroup: InstallableOptions\n";
}

/// A session whose current printer has this PPD; everything that was loaded goes with it.
class PrinterWithPPD final {
public:
    explicit PrinterWithPPD(const std::string& body) { usePPD(PPDText(body)); }
    ~PrinterWithPPD() {
        UnloadInstallableOptions();
        PPDCloseCurrent();
        KalmoPDETerminate(nullptr, noErr);
    }

    /// The session's printer from now on; the PPD that is open stays open.
    void usePPD(const std::string& text) {
        const auto file = MakeFolder("ppd") / "printer.ppd";
        WriteFile(file, text);
        useFile(file.string());
    }
    void useFile(const std::string& path) {
        printer_ = Owned<PMPrinter>::Adopt(PMPrinterCreate(CFSTR("Test"), FileURL(path)));
        PMSessionSetCurrentPrinter(session_, printer_);
        KalmoPDEInitialize(nullptr, nullptr, nullptr, nullptr, session_);
    }
    [[nodiscard]] PPDRef ppd() const { return PPDGetCurrent(); }
    [[nodiscard]] PMTicketRef ticket() const {
        return PMSessionGetTicket(session_, kPMPrintSettingsTicket);
    }

private:
    Owned<PMPrintSession> session_ = Owned<PMPrintSession>::Adopt(PMSessionCreate());
    Owned<PMPrinter> printer_;
};

}  // namespace kalmo::test
