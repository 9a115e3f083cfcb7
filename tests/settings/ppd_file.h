// PPD files made for a test, a dialog whose printer has one, and a popup for its choices.
#pragma once

#include "printing/session.h"
#include "settings/installable_options.h"
#include "settings/ppd_access.h"
#include "shell/base/current_session.h"
#include "support/qt_test.h"
#include "toolbox/menus.h"

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

struct Popup {
    QComboBox widget;
    ControlRef control = ControlFromWidget(&widget);
    MenuRef menu = GetControlPopupMenu(control);

    /// "text=reference" of each item.
    [[nodiscard]] std::vector<std::string> items() const {
        std::vector<std::string> items;
        for (UInt16 item = 1; item <= CountMenuItems(menu); ++item) {
            ItemReference reference = 0;
            GetMenuItemRefCon(menu, item, &reference);
            items.push_back(TakeText(CopyMenuItemTextAsCFString(menu, item)) + "=" +
                            std::to_string(reference));
        }
        return items;
    }
};

using Items = std::vector<std::string>;

}  // namespace kalmo::test
