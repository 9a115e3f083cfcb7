#include <algorithm>

#include "settings/dictionary.h"
#include "settings/ppd_menus.h"
#include "settings/setting_maps.h"
#include "settings/setting_menus.h"
#include "special_pages/image_shift_fields.h"
#include "special_pages/page_dialog.h"
#include "special_pages/special_page_dialogs.h"

namespace kalmo {
namespace {

constexpr SInt32 kPagesID = 202, kSidesID = 205, kLightnessLabelID = 206, kLightnessID = 207;
constexpr PaperField::IDs kPaper = {.menu = 212, .summary = 213, .picture = 214};
#define kLightnessKeyword CFSTR("KLImageQuality")

ExceptionPage StartOf(const ExceptionPage* edited) {
    if (edited) return *edited;
    ExceptionPage exception;
    DefaultStock(&exception.stock(), JobContext::exception);
    return exception;
}

/// As the user would type them. Pages below 1 come from a ticket only; 0 says that they are wrong.
Owned<CFStringRef> PagesText(const ExceptionPage& exception) {
    const auto start = CreateNumber(std::max(exception.startPage(), 0));
    const auto end = CreateNumber(std::max(exception.endPage(), 0));
    const bool isOne = exception.startPage() == exception.endPage();
    return Owned<CFStringRef>::Adopt(
        CFStringCreateWithFormat(kCFAllocatorDefault, isOne ? CFSTR("%d") : CFSTR("%d-%d"),
                                 CFTypeRef{start.get()}, CFTypeRef{end.get()}));
}

class ExceptionsDialog final : public PageDialog {
public:
    ExceptionsDialog(SpecialPagesModel* model, DialogMode mode, const ExceptionPage* edited)
        : PageDialog(model, {.file = CFSTR("Exceptions"),
                             .window = CFSTR("Exceptions"),
                             .helpPage = CFSTR("special_pages/exceptions.htm"),
                             .titleKey = mode == DialogMode::edit ? CFSTR("Edit Exception Title")
                                                                  : CFSTR("Add Exceptions Title")}),
          edited_(edited ? edited->serial() : 0),
          exception_(StartOf(edited)),
          paper_(*model, JobContext::exception, &exception_.stock()),
          shift_(model->bundle, &exception_.imageShift()) {}

private:
    void prepare() override {
        setUpPages(kPagesID, edited_ ? PagesText(exception_).get() : CFSTR(""));
        FillPopup(bundle(), control(kSidesID), PlexMap, JobSetting::first);
        ChooseInPopup(bundle(), control(kSidesID), exception_.plex());
        fillLightness();
        paper_.setUp(window(), kPaper, {});
        shift_.setUp(window());
        showLayers();
    }

    bool accept() override {
        const auto ranges = readPages(kPagesID, true);
        if (!ranges) return false;
        if (std::ranges::any_of(*ranges, [](const PageRange& range) { return range.first < 1; })) {
            refusePages(kPagesID, kInvalidPageNumber);
            return false;
        }
        if (!shift_.settle()) return false;
        takeChoices();
        put(model().now.exceptions.get(), edited_, exceptionsFor(*ranges));
        return true;
    }

    void controlWasHit(SInt32 id) override {
        shift_.controlWasHit(id);
        showLayers();
    }

    [[nodiscard]] std::vector<Layer> layers() const override {
        std::vector<Layer> layers = {sidesLayer()};
        if (shift_.choice() == kSameShift)
            layers.push_back({"SpecialPages_ShiftSame.gif", "ImageShiftSameDescription"});
        else if (shift_.choice() != kPrinterDefault)
            layers.push_back({"SpecialPages_ShiftApart.gif", "ImageShiftApartDescription"});
        if (lightness() == kUnset || lightness() == 0) return layers;
        layers.push_back(lightness() < 0
                             ? Layer{"SpecialPages_Lighter.gif", "ExceptionLighterDescription"}
                             : Layer{"SpecialPages_Darker.gif", "ExceptionDarkerDescription"});
        return layers;
    }

    [[nodiscard]] Layer sidesLayer() const {
        switch (GetPopupButtonTicketValue(control(kSidesID))) {
            case 1:
                return {"SpecialPages_OneSided.gif", "ExceptionOneSidedDescription"};
            case 2:
                return {"SpecialPages_TwoSided.gif", "ExceptionTwoSidedDescription"};
            case 3:
                return {"SpecialPages_TwoSidedFlip.gif", "ExceptionTwoSidedFlipDescription"};
            default:
                return {"SpecialPages_Exception.gif", "ExceptionSidesOfJobDescription"};
        }
    }

    /// Printers without it are not asked for it; what the page has then stays.
    void fillLightness() {
        const ControlRef popup = control(kLightnessID);
        if (PPDPopulatePopupWithChoices(popup, model().ppd, kLightnessKeyword,
                                        Constraints::ignore) == 0) {
            HideControl(control(kLightnessLabelID));
            HideControl(popup);
        }
        InsertJobSetting(bundle(), popup);
        ChooseInPopup(bundle(), popup, exception_.lightenDarken());
    }

    void takeChoices() {
        exception_.setPlex(GetPopupButtonTicketValue(control(kSidesID)));
        exception_.setLightenDarken(lightness());
        shift_.take();
    }

    [[nodiscard]] std::vector<ExceptionPage> exceptionsFor(const std::vector<PageRange>& ranges) {
        std::vector<ExceptionPage> exceptions;
        exceptions.reserve(ranges.size());
        for (const PageRange& range : ranges) {
            exception_.setStartPage(range.first);
            exception_.setEndPage(range.first + range.count - 1);
            exceptions.push_back(exception_);
        }
        return exceptions;
    }

    [[nodiscard]] SInt32 lightness() const {
        return GetPopupButtonTicketValue(control(kLightnessID));
    }

    SInt64 edited_;  // its serial number; 0: there is none
    ExceptionPage exception_;
    PaperField paper_;
    ImageShiftFields shift_;
};

}  // namespace

SInt32 RunModalExceptionsDialog(SpecialPagesModel* model, DialogMode mode,
                                const ExceptionPage* edited) {
    return ExceptionsDialog(model, mode, edited).run();
}

}  // namespace kalmo
