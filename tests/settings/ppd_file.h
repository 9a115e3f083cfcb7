// PPD files made for a test, and a dialog whose printer has one.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "printing/session.h"
#include "settings/installable_options.h"
#include "settings/ppd_access.h"
#include "shell/base/current_session.h"
#include "support/private_home.h"

namespace kalmo::test {

inline std::string PPDOption(const std::string& keyword, const std::string& defaultChoice,
                             const std::vector<std::string>& choices) {
    std::string text = "*OpenUI *" + keyword + ": PickOne\n";
    if (!defaultChoice.empty()) text += "*Default" + keyword + ": " + defaultChoice + "\n";
    for (const std::string& choice : choices) text += "*" + keyword + " " + choice + ": \"\"\n";
    return text + "*CloseUI: *" + keyword + "\n";
}

inline std::string PPDText(const std::string& body) {
    return "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
           "*LanguageVersion: English\n*LanguageEncoding: UTF-8\n*PCFileName: \"TEST.PPD\"\n"
           "*Product: \"(Test)\"\n*PSVersion: \"(3010.000) 0\"\n*ModelName: \"Test\"\n"
           "*ShortNickName: \"Test\"\n*NickName: \"Test\"\n" +
           body;
}

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
        const auto name = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(path));
        const auto url =
            Owned<CFURLRef>::Adopt(CFURLCreateWithFileSystemPath(kCFAllocatorDefault, name, false));
        printer_ = Owned<PMPrinter>::Adopt(PMPrinterCreate(CFSTR("Test"), url));
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

/// UTF-8 of what a Create or Copy returned; "(null)" for null.
inline std::string TextOf(CFStringRef created) {
    const auto text = Owned<CFStringRef>::Adopt(created);
    return text ? CFStringToUTF8(text) : "(null)";
}

}  // namespace kalmo::test
