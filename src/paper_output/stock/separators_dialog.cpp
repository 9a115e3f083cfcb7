#include "controls/modal_dialog.h"
#include "paper_output/stock/separators.h"
#include "paper_output/stock/stock_menu.h"
#include "paper_output/stock/stock_summary.h"
#include "settings/setting_maps.h"
#include "settings/setting_menus.h"

namespace kalmo {
namespace {

constexpr SInt32 kOption = 101, kStockLabel = 102, kStockMenu = 103, kStockSummary = 104,
                 kStockPicture = 105;
/// A separator is a sheet of the job's own pages' kind: it may follow the job's paper and never
/// comes from the inserter.
constexpr JobContext kSeparatorContext = JobContext::exception;

class SeparatorsDialog final : public ModalDialog {
public:
    SeparatorsDialog(CFBundleRef bundle, Separators* separators)
        : ModalDialog(bundle, {.file = CFSTR("Separators"),
                               .window = CFSTR("Separators"),
                               .helpPage = CFSTR("Paper_Output/Paper/separators.htm")}),
          separators_(separators),
          choice_(*separators) {}

protected:
    void prepare() override {
        PopulatePopupButtonFromMap(bundle(), control(kOption), _SeparatorOptionMap,
                                   kSeparatorContext, 0);
        SetPopupButtonToTicketValue(control(kOption), choice_.option);
        menuData_ = {.bundle = bundle(),
                     .ppd = PPDGetCurrent(),
                     .context = kSeparatorContext,
                     .stock = &choice_.stock,
                     .changed = [this] { showChoice(); }};
        InitializeStockMenuButton(control(kStockMenu), &menuData_);
        constexpr EventTypeSpec kDraw = {kEventClassControl, kEventControlDraw};
        InstallControlEventHandler(control(kStockPicture), StockIconEventHandler, 1, &kDraw,
                                   &choice_.stock, nullptr);
        showChoice();
    }

    bool accept() override {
        *separators_ = choice_;
        return true;
    }

    void controlWasHit(SInt32 id) override {
        if (id != kOption) return;
        choice_.option = GetPopupButtonTicketValue(control(kOption));
        showChoice();
    }

private:
    void showChoice() {
        const bool separates = choice_.option != kNoSeparators;
        for (const SInt32 id : {kStockLabel, kStockMenu, kStockSummary, kStockPicture})
            separates ? EnableControl(control(id)) : DisableControl(control(id));
        ShowStockSummary(bundle(), control(kStockSummary), &choice_.stock, kSeparatorContext);
        const auto words =
            Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(control(kStockSummary)));
        SetControlAccessibleDescription(control(kStockPicture), words);
        SetControlNeedsDisplay(control(kStockPicture));
    }

    Separators* separators_;
    Separators choice_;
    StockMenuHandlerData menuData_;
};

}  // namespace

SInt32 RunModalSeparatorsDialog(CFBundleRef bundle, Separators* separators) {
    return separators ? SeparatorsDialog(bundle, separators).run() : paramErr;
}

}  // namespace kalmo
