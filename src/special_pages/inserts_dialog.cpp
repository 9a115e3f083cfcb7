#include <algorithm>

#include "controls/spin_control.h"
#include "settings/dictionary.h"
#include "settings/setting_maps.h"
#include "settings/setting_menus.h"
#include "shell/base/notices.h"
#include "special_pages/page_dialog.h"
#include "special_pages/special_page_dialogs.h"

namespace kalmo {
namespace {

constexpr SInt32 kPositionID = 201, kPagesLabelID = 202, kPagesID = 203, kPagesHintID = 204;
constexpr PaperField::IDs kPaper = {.menu = 212, .summary = 213, .picture = 214};
constexpr SpinControlSetup kQuantity = {.arrows = 207, .field = 206, .minimum = 1, .maximum = 999};

/// Values of InsertOptionMap.
constexpr SInt32 kAfterPages = 1, kBeforePage1 = 2;
/// From here on the user is asked whether it is meant.
constexpr SInt64 kManySheets = 1000;

Insert StartOf(const Insert* edited) {
    if (edited) return *edited;
    Insert insert;
    DefaultStock(&insert.stock(), JobContext::insert);
    return insert;
}

class InsertsDialog final : public PageDialog {
public:
    InsertsDialog(SpecialPagesModel* model, DialogMode mode, const Insert* edited)
        : PageDialog(model, {.file = CFSTR("Inserts"),
                             .window = CFSTR("Inserts"),
                             .helpPage = CFSTR("special_pages/inserts.htm"),
                             .titleKey = mode == DialogMode::edit ? CFSTR("Edit Insert Title")
                                                                  : CFSTR("Add Inserts Title")}),
          edited_(edited ? edited->serial() : 0),
          insert_(StartOf(edited)),
          paper_(*model, JobContext::insert, &insert_.stock()) {}

private:
    void prepare() override {
        FillPopup(bundle(), control(kPositionID), InsertOptionMap, JobSetting::leftOut);
        const bool isBefore = edited_ && insert_.startPage() <= 0;
        SetPopupButtonToTicketValue(control(kPositionID), isBefore ? kBeforePage1 : kAfterPages);
        const auto page = Owned<CFStringRef>::Adopt(CFStringCreateWithFormat(
            kCFAllocatorDefault, CFSTR("%d"), CFTypeRef{CreateNumber(insert_.startPage()).get()}));
        setUpPages(kPagesID, edited_ && !isBefore ? page.get() : CFSTR(""));
        SetUpSpinControl(window(), kDialogSignature, kQuantity);
        SetSpinControlValue(control(kQuantity.arrows),
                            std::clamp(insert_.quantity(), kQuantity.minimum, kQuantity.maximum));
        paper_.setUp(window(), kPaper, {});
        showPosition();
    }

    bool accept() override {
        const auto starts = startPages();
        if (!starts || !SettleSpinControl(control(kQuantity.arrows))) return false;
        if (!isMeant(static_cast<SInt64>(starts->size()) * quantity())) return false;
        insert_.setQuantity(quantity());
        std::vector<Insert> inserts;
        inserts.reserve(starts->size());
        for (const PageRange& start : *starts) {
            insert_.setStartPage(start.first);
            inserts.push_back(insert_);
        }
        put(model().now.inserts.get(), edited_, inserts);
        return true;
    }

    void controlWasHit(SInt32 id) override {
        if (id == kPositionID) showPosition();
    }
    void numberWasChanged(SInt32) override { showLayers(); }

    [[nodiscard]] std::vector<Layer> layers() const override {
        constexpr Layer kLayers[2][2] = {
            {{"SpecialPages_InsertAfter.gif", "InsertAfterDescription"},
             {"SpecialPages_InsertsAfter.gif", "InsertsAfterDescription"}},
            {{"SpecialPages_InsertBefore.gif", "InsertBeforeDescription"},
             {"SpecialPages_InsertsBefore.gif", "InsertsBeforeDescription"}}};
        return {kLayers[isBeforePage1() ? 1 : 0][quantity() > 1 ? 1 : 0]};
    }

    void showPosition() {
        for (const SInt32 id : {kPagesLabelID, kPagesID, kPagesHintID})
            enable(id, !isBeforePage1());
        showLayers();
    }

    [[nodiscard]] bool isBeforePage1() const {
        return GetPopupButtonTicketValue(control(kPositionID)) == kBeforePage1;
    }
    [[nodiscard]] SInt32 quantity() const {
        return GetControl32BitValue(control(kQuantity.arrows));
    }

    /// One for each place; a page 0 that is typed is the one before page 1, too.
    [[nodiscard]] std::optional<std::vector<PageRange>> startPages() const {
        if (isBeforePage1()) return std::vector<PageRange>{{.first = 0}};
        return readPages(kPagesID, false);
    }

    [[nodiscard]] bool isMeant(SInt64 sheets) const {
        if (sheets <= kManySheets) return true;
        const auto count = CreateNumber(static_cast<SInt32>(sheets));
        const CFTypeRef arguments[] = {count.get()};
        return AskToDestroyWithKeys(bundle(),
                                    {CFSTR("Many Inserts Title"), CFSTR("Many Inserts Message")},
                                    CFSTR("Cancel Command"), CFSTR("Many Inserts Command"),
                                    arguments, std::size(arguments));
    }

    SInt64 edited_;  // its serial number; 0: there is none
    Insert insert_;
    PaperField paper_;
};

}  // namespace

SInt32 RunModalInsertsDialog(SpecialPagesModel* model, DialogMode mode, const Insert* edited) {
    return InsertsDialog(model, mode, edited).run();
}

}  // namespace kalmo
