#include "paper_output/booklet_dialog.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "controls/modal_dialog.h"
#include "controls/spin_control.h"
#include "paper_output/finishing.h"
#include "settings/ppd_choices.h"
#include "settings/ppd_menus.h"
#include "settings/setting_menus.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

constexpr SInt32 kLayoutID = 301, kOutlinesID = 302, kPaperID = 304, kGutterID = 306,
                 kGutterArrowsID = 307, kCreepID = 309, kCreepArrowsID = 310, kFoldLabelID = 311,
                 kFoldID = 312;
/// What says something only about a layout: labels, fields, arrows.
constexpr SInt32 kLayoutOnlyIDs[] = {kOutlinesID,     303, kPaperID, 305,           kGutterID,
                                     kGutterArrowsID, 308, kCreepID, kCreepArrowsID};

/// In pt.
constexpr SpinControlSetup kSpins[] = {
    {.arrows = kGutterArrowsID, .field = kGutterID, .minimum = 0, .maximum = 144},
    {.arrows = kCreepArrowsID, .field = kCreepID, .minimum = 0, .maximum = 72},
};

struct FoldRow {
    SInt32 fold;
    const char* textKey;
    const char* plainDescriptionKey;
    const char* layoutDescriptionKey;
};
constexpr FoldRow kFolds[] = {
    {kNoFinishing, "No Fold", "BookletNothingDescription", "BookletLayoutDescription"},
    {kFoldBi, "Booklet Fold", "BookletFoldDescription", "BookletLayoutFoldDescription"},
    {kFoldBiStaple, "Booklet FoldStaple", "BookletFoldStapleDescription",
     "BookletLayoutFoldStapleDescription"},
};

/// No fold for one that makes no booklet.
const FoldRow& RowOf(SInt32 fold) {
    const auto* row = std::ranges::find(kFolds, fold, &FoldRow::fold);
    return row == std::end(kFolds) ? kFolds[0] : *row;
}

/// The booklet folds of the printer, behind none at all.
std::vector<FoldRow> FoldsOf(PPDRef ppd) {
    std::vector<FoldRow> folds = {kFolds[0]};
    PPDForEachChoice(ppd, CFSTR("KLFold"), [&](const char*, const char* choice, const char*) {
        const FoldRow& row =
            RowOf(PPDTicketValueForChoice(CFSTR("KLFold"), CFStringMakeConstant(choice)));
        if (row.fold != kNoFinishing) folds.push_back(row);
    });
    return folds;
}

class BookletDialog final : public ModalDialog {
public:
    BookletDialog(CFBundleRef bundle, PPDRef ppd, BookletChoice* choice)
        : ModalDialog(bundle, {.file = CFSTR("BookletCreation"),
                               .window = CFSTR("BookletCreation"),
                               .helpPage = CFSTR("Paper_Output/Finishing/booklet_creation.htm"),
                               .picture = 100}),
          ppd_(ppd),
          choice_(choice) {}

private:
    void prepare() override {
        const Booklet& booklet = choice_->booklet;
        SetControl32BitValue(control(kLayoutID), booklet.mode == kBookletOn);
        SetControl32BitValue(control(kOutlinesID), booklet.drawOutlines == 1);
        for (const SpinControlSetup& setup : kSpins)
            SetUpSpinControl(window(), kDialogSignature, setup);
        show(kSpins[0], booklet.gutter);
        show(kSpins[1], booklet.creep);
        fillPapers();
        fillFolds();
        enableLayout();
    }

    bool accept() override {
        if (!numbersAreRight()) return false;
        Booklet& booklet = choice_->booklet;
        booklet.mode = isOn(kLayoutID) ? kBookletOn : kBookletOff;
        booklet.drawOutlines = isOn(kOutlinesID) ? 1 : 0;
        booklet.newSize = GetPopupButtonTicketValue(control(kPaperID));
        booklet.gutter = GetControl32BitValue(control(kGutterArrowsID));
        booklet.creep = GetControl32BitValue(control(kCreepArrowsID));
        // A fold that makes no booklet is none of this dialog's business.
        if (chosenFold() != RowOf(choice_->fold).fold) choice_->fold = chosenFold();
        return true;
    }

    void controlWasHit(SInt32 id) override {
        if (id == kLayoutID) enableLayout();
        if (id == kLayoutID || id == kFoldID) updatePicture();
    }

    [[nodiscard]] Illustration illustration() const override {
        const BookletState shown = BookletStateOf(chosenFold(), isOn(kLayoutID));
        return {shown.picture, shown.descriptionKey};
    }

    /// What a ticket puts out of the range is held at its end.
    void show(const SpinControlSetup& setup, SInt32 value) {
        SetSpinControlValue(control(setup.arrows), std::clamp(value, setup.minimum, setup.maximum));
    }

    void fillPapers() {
        const ControlRef popup = control(kPaperID);
        const MenuRef menu = GetControlPopupMenu(popup);
        PPDPopulateMenuWithChoices(menu, ppd_, CFSTR("PageSize"), 0, Constraints::ignore);
        // A size of one's own would have to be asked for; a booklet takes the printer's.
        if (const UInt16 custom = MenuItemWithReference(menu, kStockSizeCustom))
            DeleteMenuItem(menu, custom);
        InsertMenuItemTextWithCFString(menu, CopyText(bundle(), CFSTR("BookletOwnPaper")), 0,
                                       kMenuItemPlain, 0);
        SetMenuItemRefCon(menu, 1, kUnset);
        SetControl32BitMaximum(popup, CountMenuItems(menu));
        SetControl32BitValue(popup, 1);
        SetPopupButtonToTicketValue(popup, choice_->booklet.newSize);
    }

    void fillFolds() {
        const ControlRef popup = control(kFoldID);
        const MenuRef menu = GetControlPopupMenu(popup);
        const std::vector<FoldRow> folds = FoldsOf(ppd_);
        for (const FoldRow& row : folds) {
            UInt16 item = 0;
            AppendMenuItemTextWithCFString(menu,
                                           CopyText(bundle(), CFStringMakeConstant(row.textKey)),
                                           kMenuItemPlain, 0, &item);
            SetMenuItemRefCon(menu, item, row.fold);
        }
        SetControl32BitMaximum(popup, CountMenuItems(menu));
        SetPopupButtonToTicketValue(popup, RowOf(choice_->fold).fold);
        if (folds.size() > 1) return;
        HideControl(control(kFoldLabelID));
        HideControl(popup);
    }

    void enableLayout() {
        for (const SInt32 id : kLayoutOnlyIDs) enable(id, isOn(kLayoutID));
    }

    /// A number out of its range is put right where the user sees it.
    bool numbersAreRight() {
        return std::ranges::all_of(kSpins, [this](const SpinControlSetup& setup) {
            return SettleSpinControl(control(setup.arrows));
        });
    }

    [[nodiscard]] SInt32 chosenFold() const { return GetPopupButtonTicketValue(control(kFoldID)); }

    PPDRef ppd_;  // lent; may be null
    BookletChoice* choice_;
};

}  // namespace

SInt32 RunModalBookletDialog(CFBundleRef bundle, PPDRef ppd, BookletChoice* choice) {
    return BookletDialog(bundle, ppd, choice).run();
}

BookletState BookletStateOf(SInt32 fold, bool layout) {
    const FoldRow& row = RowOf(fold);
    return {FinishingPicture(Finishing{.fold = row.fold, .punch = kNoFinishing}, layout),
            layout ? row.layoutDescriptionKey : row.plainDescriptionKey};
}

}  // namespace kalmo
