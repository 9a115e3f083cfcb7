// What the dialogs for special pages have in common: a paper with its menu, words and picture,
// popups that keep numbers of no map, pages as they are typed, and a picture in layers.
#pragma once

#include <optional>
#include <vector>

#include "controls/modal_dialog.h"
#include "paper_output/stock/stock_menu.h"
#include "special_pages/page_ranges.h"
#include "special_pages/special_pages_model.h"

namespace kalmo {

/// The choice of a paper: a menu button, a summary and a picture.
class PaperField final {
public:
    struct IDs {
        SInt32 menu = 0, summary = 0, picture = 0;
    };
    /// Model and stock are lent; the stock is changed by what is chosen.
    PaperField(const SpecialPagesModel& model, JobContext context, Stock* stock)
        : model_(model), stock_(stock), menu_{.context = context, .stock = stock} {}

    /// `changed` may be empty.
    void setUp(WindowRef window, const IDs& ids, std::function<void()> changed);
    /// After the stock was changed from elsewhere.
    void show();

private:
    const SpecialPagesModel& model_;
    Stock* stock_;
    StockMenuHandlerData menu_;
    Stock shown_;
    ControlRef summary_ = nullptr, picture_ = nullptr;
};

/// Fills the popup with the map's rows; `unset` puts the job's own setting first.
enum class JobSetting { leftOut, first };
void FillPopup(CFBundleRef bundle, ControlRef popup, const SettingMap* map, JobSetting unset);
/// The job's own setting in front of what the popup offers.
void InsertJobSetting(CFBundleRef bundle, ControlRef popup);
/// Chooses the value's item. A value that only a ticket can name gets one, so that it stays; with
/// `text`, or its number.
void ChooseInPopup(CFBundleRef bundle, ControlRef popup, SInt32 value,
                   Owned<CFStringRef> text = {});

class PageDialog : public ModalDialog {
protected:
    /// Pictures are drawn over each other, their words said after each other; without a key the
    /// picture says nothing.
    struct Layer {
        const char* picture;
        const char* descriptionKey = nullptr;
    };
    static constexpr SInt32 kPictureID = 100;

    PageDialog(SpecialPagesModel* model, const Source& source)
        : ModalDialog(model->bundle, source), model_(model) {}

    [[nodiscard]] SpecialPagesModel& model() const { return *model_; }
    /// What the choices look like; the last is on top.
    [[nodiscard]] virtual std::vector<Layer> layers() const = 0;
    void showLayers();
    OSStatus draw(SInt32 id, EventRef event) override;

    /// Digits, comma, dash and blank. The text is selected, ready to be typed over.
    void setUpPages(SInt32 field, CFStringRef text) const;
    /// Nothing when the pages are refused: the user has been told, and is back in the field.
    [[nodiscard]] std::optional<std::vector<PageRange>> readPages(SInt32 field, bool byRange) const;
    void refusePages(SInt32 field, OSStatus code) const;

    /// Adds the pages in place of the one with this serial number, which is gone afterwards. 0: of
    /// none; nor is there one when the ticket was read anew meanwhile.
    template <typename Page>
    void put(SpecialPageList* list, SInt64 edited, const std::vector<Page>& pages) const {
        std::vector<const SpecialPage*> lent;
        for (const Page& page : pages) lent.push_back(&page);
        SaveUndoState(model_);
        const auto array = ArrayOfPages(lent);
        const SpecialPage* const old = edited ? list->pageWithSerial(edited) : nullptr;
        old ? list->update(old, array) : list->add(array);
        tellChange();
    }
    void tellChange() const {
        if (model_->changed) model_->changed();
    }

private:
    void select(SInt32 field) const;

    SpecialPagesModel* model_;  // lent
};

}  // namespace kalmo
