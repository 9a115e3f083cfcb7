#include "image_options/about_box.h"

#include <cstdio>

#include "controls/modal_dialog.h"
#include "settings/dictionary.h"
#include "settings/ticket.h"
#include "shell/base/current_session.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

constexpr SInt32 kPictureID = 100, kModelID = 101, kVersionID = 102;
constexpr CFIndex kLongestModel = 60;

/// As it is told without its maker; null when the ticket does not know it.
Owned<CFStringRef> CopyModel() {
    PMTicketRef printer = kPMNoTicket;
    GetTicketFromSession(GetCurrentPrintSession(), kPMPrinterInfoTicket, &printer);
    CFStringRef model = nullptr;
    if (PMTicketGetCFString(printer, kPMMakeAndModelNameKey, &model) != noErr) {
        std::fprintf(stderr,
                     "ERROR: Could not find kPMMakeAndModelNameKey in PMTicket\t. File:%s\t "
                     "Line:%d\n",
                     __FILE_NAME__, __LINE__);
        return {};
    }
    const auto trimmed =
        Owned<CFMutableStringRef>::Adopt(CFStringCreateMutable(kCFAllocatorDefault, 0));
    CFStringAppend(trimmed, model);
    if (CFStringFindWithOptions(model, CFSTR("Kalmo"), {0, CFStringGetLength(model)}, 0, nullptr))
        CFStringTrim(trimmed, CFSTR("Kalmo "));
    return CopyShortened(trimmed, kLongestModel);
}

/// Of Info.plist; empty when it is no text.
CFStringRef InfoText(CFBundleRef bundle, CFStringRef key) {
    const auto text = ValueOfType<CFStringRef>(CFBundleGetValueForInfoDictionaryKey(bundle, key),
                                               CFStringGetTypeID());
    return text ? text : CFSTR("");
}

Owned<CFStringRef> CopyVersion(CFBundleRef bundle) {
    const auto label = CopyText(bundle, CFSTR("DriverVersion"));
    return Owned<CFStringRef>::Adopt(
        CFStringCreateWithFormat(kCFAllocatorDefault, CFSTR("%@ %@ (%@)"), label.get(),
                                 InfoText(bundle, CFSTR("CFBundleShortVersionString")),
                                 InfoText(bundle, CFSTR("CFBundleVersion"))));
}

class AboutBox final : public ModalDialog {
public:
    explicit AboutBox(CFBundleRef bundle)
        : ModalDialog(bundle, {.file = CFSTR("NewAboutPanel"),
                               .window = CFSTR("About"),
                               .helpPage = nullptr,
                               .picture = kPictureID}) {}

private:
    void prepare() override {
        const auto model = CopyModel();
        if (model) {
            SetControlTitleWithCFString(control(kModelID), model);
        } else {
            HideControl(control(kModelID));
        }
        SetControlTitleWithCFString(control(kVersionID), CopyVersion(bundle()));
    }

    bool accept() override { return true; }

    [[nodiscard]] Illustration illustration() const override {
        return {"Brand_About.png", "BrandAboutDescription"};
    }
};

}  // namespace

SInt32 RunModalAboutDialog(CFBundleRef bundle) { return AboutBox(bundle).run(); }

}  // namespace kalmo
