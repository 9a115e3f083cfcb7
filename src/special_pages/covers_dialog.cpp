#include <algorithm>
#include <iterator>

#include "settings/setting_maps.h"
#include "settings/setting_menus.h"
#include "shell/base/texts.h"
#include "special_pages/page_dialog.h"
#include "special_pages/special_page_dialogs.h"

namespace kalmo {
namespace {

constexpr SInt32 kOptionID = 201;

struct CoverIDs {
    SInt32 group, sides;
    PaperField::IDs paper;
};
constexpr CoverIDs kFrontIDs = {300, 302, {.menu = 304, .summary = 305, .picture = 306}},
                   kBackIDs = {400, 402, {.menu = 404, .summary = 405, .picture = 406}};

/// Values of CoverOptionMap, and two of this dialog's own.
constexpr SInt32 kNoCovers = 1, kFrontOnly = 2, kBackOnly = 3, kSameCovers = 4, kTwoCovers = 5;

struct OptionRow {
    SInt32 option;
    bool hasFront, hasBack;
};
constexpr OptionRow kOptions[] = {{kNoCovers, false, false},
                                  {kFrontOnly, true, false},
                                  {kBackOnly, false, true},
                                  {kSameCovers, true, true},
                                  {kTwoCovers, true, true}};

/// Numbers of sides imaged.
constexpr SInt32 kBlank = 1, kOneSide = 2, kBothSides = 4;

/// What the model's covers are; where there are none, what the user most likely came for.
SInt32 OptionOf(const SpecialPagesModel& model, DialogMode mode) {
    const Cover *front = model.now.front.get(), *back = model.now.back.get();
    if (!front && !back && mode == DialogMode::edit) return kNoCovers;
    if (model.isBooklet) return kSameCovers;
    if (front && back) return *front == *back ? kSameCovers : kTwoCovers;
    return back ? kBackOnly : kFrontOnly;
}

Cover StartOf(const Cover* cover) {
    if (cover) return *cover;
    Cover started;
    DefaultStock(&started.stock(), JobContext::cover);
    return started;
}

/// A map names one kind of print. The other one comes from a job whose sides were others then.
Owned<CFStringRef> TextOfOtherSides(CFBundleRef bundle, SInt32 sides) {
    if (sides == kOneSide) return CopyText(bundle, CFSTR("CoverPrintedOneSide"));
    if (sides == kBothSides) return CopyText(bundle, CFSTR("CoverPrintedBothSides"));
    return {};
}

std::unique_ptr<Cover> CloneIf(bool wanted, const Cover& cover) {
    return std::unique_ptr<Cover>(wanted ? cover.clone() : nullptr);
}

class CoversDialog final : public PageDialog {
public:
    CoversDialog(SpecialPagesModel* model, DialogMode mode)
        : PageDialog(model, {.file = CFSTR("Covers"),
                             .window = CFSTR("Covers"),
                             .helpPage = CFSTR("special_pages/covers.htm"),
                             .titleKey = mode == DialogMode::edit ? CFSTR("Edit Covers Title")
                                                                  : CFSTR("Add Covers Title")}),
          startOption_(OptionOf(*model, mode)),
          front_(StartOf(model->now.front.get())),
          back_(StartOf(model->now.back.get())),
          frontPaper_(*model, JobContext::cover, &front_.stock()),
          backPaper_(*model, JobContext::cover, &back_.stock()) {}

private:
    void prepare() override {
        fillOptions();
        fillSides(kFrontIDs, front_);
        fillSides(kBackIDs, back_);
        frontPaper_.setUp(window(), kFrontIDs.paper, [this] { showChoice(); });
        backPaper_.setUp(window(), kBackIDs.paper, {});
        showChoice();
    }

    bool accept() override {
        const OptionRow& chosen = option();
        SpecialPages& now = model().now;
        now.front = CloneIf(chosen.hasFront, front_);
        now.back = CloneIf(chosen.hasBack, isSame() ? front_ : back_);
        tellChange();
        return true;
    }

    void controlWasHit(SInt32 id) override {
        if (id == kFrontIDs.sides) front_.setSidesImaged(chosenSides(kFrontIDs));
        if (id == kBackIDs.sides) back_.setSidesImaged(chosenSides(kBackIDs));
        if (id == kOptionID || id == kFrontIDs.sides || id == kBackIDs.sides) showChoice();
    }

    [[nodiscard]] std::vector<Layer> layers() const override {
        const OptionRow& chosen = option();
        std::vector<Layer> layers;
        if (chosen.hasBack)
            layers.push_back(
                back_.sidesImaged() == kBlank
                    ? Layer{"SpecialPages_BackBlank.gif", "CoverBackBlankDescription"}
                    : Layer{"SpecialPages_BackPrinted.gif", "CoverBackPrintedDescription"});
        layers.push_back({"SpecialPages_Pages.gif",
                          chosen.option == kNoCovers ? "CoversNoneDescription" : nullptr});
        if (chosen.hasFront)
            layers.push_back(
                front_.sidesImaged() == kBlank
                    ? Layer{"SpecialPages_FrontBlank.gif", "CoverFrontBlankDescription"}
                    : Layer{"SpecialPages_FrontPrinted.gif", "CoverFrontPrintedDescription"});
        return layers;
    }

    /// The covers of a booklet are one sheet: it has both or none.
    void fillOptions() {
        const ControlRef popup = control(kOptionID);
        FillPopup(bundle(), popup, CoverOptionMap, JobSetting::leftOut);
        const MenuRef menu = GetControlPopupMenu(popup);
        const UInt16 frontOnly = MenuItemWithReference(menu, kFrontOnly);
        if (model().isBooklet) {
            DeleteMenuItem(menu, frontOnly);
        } else {
            insertOption(CFSTR("Back Cover Only"), frontOnly, kBackOnly);
            insertOption(CFSTR("Two Covers"), CountMenuItems(menu), kTwoCovers);
        }
        SetControl32BitMaximum(popup, CountMenuItems(menu));
        SetPopupButtonToTicketValue(popup, startOption_);
    }

    void insertOption(CFStringRef key, UInt16 after, SInt32 value) {
        const MenuRef menu = GetControlPopupMenu(control(kOptionID));
        InsertMenuItemTextWithCFString(menu, CopyText(bundle(), key), after, kMenuItemPlain, 0);
        SetMenuItemRefCon(menu, after + 1, value);
    }

    void fillSides(const CoverIDs& ids, const Cover& cover) {
        FillPopup(bundle(), control(ids.sides),
                  model().isTwoSided ? CoverSidesDuplexImagedMap : CoverSidesSimplexImagedMap,
                  JobSetting::leftOut);
        showSides(ids, cover);
    }

    void showSides(const CoverIDs& ids, const Cover& cover) {
        ChooseInPopup(bundle(), control(ids.sides), cover.sidesImaged(),
                      TextOfOtherSides(bundle(), cover.sidesImaged()));
    }

    void showChoice() {
        const OptionRow& chosen = option();
        if (isSame()) {
            back_ = front_;
            showSides(kBackIDs, back_);
            backPaper_.show();
        }
        enable(kFrontIDs.group, chosen.hasFront);
        enable(kBackIDs.group, chosen.hasBack && !isSame());
        showLayers();
    }

    [[nodiscard]] const OptionRow& option() const {
        const SInt32 chosen = GetPopupButtonTicketValue(control(kOptionID));
        const auto* row = std::ranges::find(kOptions, chosen, &OptionRow::option);
        return row == std::end(kOptions) ? kOptions[0] : *row;
    }
    [[nodiscard]] bool isSame() const { return option().option == kSameCovers; }
    [[nodiscard]] SInt32 chosenSides(const CoverIDs& ids) const {
        return GetPopupButtonTicketValue(control(ids.sides));
    }

    SInt32 startOption_;
    Cover front_, back_;
    PaperField frontPaper_, backPaper_;
};

}  // namespace

SInt32 RunModalCoversDialog(SpecialPagesModel* model, DialogMode mode) {
    return CoversDialog(model, mode).run();
}

}  // namespace kalmo
