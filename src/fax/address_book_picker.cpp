#include "fax/address_book_picker.h"

#include <algorithm>

#include "contacts/collation.h"
#include "controls/modal_dialog.h"
#include "fax/candidate_recipient.h"
#include "fax/fax_options.h"
#include "fax/picker_loading.h"
#include "settings/dictionary.h"
#include "shell/base/notices.h"
#include "shell/base/panel_interface.h"
#include "shell/base/texts.h"
#include "toolbox/worker.h"

namespace kalmo {
namespace {

using Index = PickerCandidates::Index;

constexpr SInt32 kGroupsID = 200, kSearchID = 201, kCandidatesID = 202, kNoteID = 203,
                 kBusyID = 204, kCountID = 205, kAddID = 901;
constexpr OSType kGroupColumn = 'grup';

constexpr struct {
    SInt32 list;
    OSType column;
    const char* titleKey;
    SInt32 width;
} kColumns[] = {
    {kGroupsID, kGroupColumn, "Group Column", 160},
    {kCandidatesID, kLastNameColumn, "Last Name Column", 120},
    {kCandidatesID, kFirstNameColumn, "First Name Column", 120},
    {kCandidatesID, kFaxNumberColumn, "Number Column", 130},
    {kCandidatesID, kLabelColumn, "Label Column", 115},
    {kCandidatesID, kOrganizationColumn, "Organization Column", 120},
};
/// What an address book brings may be long, and hold line feeds.
constexpr CFIndex kLongestText = 200;

/// An item is an index and 1.
ListItem ItemOf(std::size_t index) { return static_cast<ListItem>(index) + 1; }
Index IndexOf(ListItem item) { return static_cast<Index>(item - 1); }

class FaxABPicker final : public ModalDialog {
public:
    explicit FaxABPicker(FaxRecipientsModel* model)
        : ModalDialog(
              model->bundle,
              {.file = kFaxInterfaceFile,
               .window = CFSTR("Picker"),
               .helpPage = CFSTR("Paper_Output/Job_Type/Fax/Fax_Recipients/address_book.htm")}),
          model_(model),
          worker_(CreateWorker(WorkerPace::patient)) {}
    ~FaxABPicker() override { FinalizeFaxABPicker(); }

private:
    void prepare() override { InitializeFaxABPicker(); }
    void textWasTyped(SInt32 id) override { FaxABPickerEventHandler(id); }
    void listWasUsed(SInt32 id, UInt32 kind) override { FaxABPickerItemNotification(id, kind); }

    void InitializeFaxABPicker() {
        for (const auto& row : kColumns)
            AddListColumn(control(row.list), row.column,
                          CopyText(bundle(), CFStringMakeConstant(row.titleKey), kFaxTextTable),
                          row.width);
        for (const SInt32 id : {kGroupsID, kCandidatesID}) {
            SetListTextProc(control(id), FaxABPickerItemData, this);
            SetListSelectsMany(control(id), true);
        }
        SetListSortable(control(kCandidatesID), true);
        SetKeyboardFocus(control(kSearchID));
        showCount();
        load();
    }

    bool accept() override { return AddSelectedRecordsToRecipientList() != 0; }

    void FaxABPickerEventHandler(SInt32 id) {
        if (id == kSearchID) UpdatePersonBrowser();
    }

    /// Nothing that is still being read comes to a window that is gone.
    void FinalizeFaxABPicker() {
        stop_.request_stop();
        DisposeWorker(worker_);
    }

    void load() {
        showNote(CopyText(bundle(), CFSTR("Loading Address Book"), kFaxTextTable));
        const auto loaded = std::make_shared<PickerLoad>(
            PickerLoad{.answer = {.code = contacts::Code::failed, .text = {}}});
        RunOnWorker(
            worker_,
            [loaded, settings = contacts::CurrentSettings(), words = CopyPickerWords(bundle()),
             stop = stop_.get_token()] {
                WithoutExceptions(noErr, [&] {
                    *loaded = LoadPicker(settings, words, stop);
                    return noErr;
                });
            },
            [this, loaded] { show(*loaded); });
    }

    void show(const PickerLoad& load) {
        HideControl(control(kBusyID));
        showNote(CopyPickerNote(bundle(), load));
        candidates_ = load.candidates;
        if (!candidates_) return;
        std::vector<ListItem> groups;
        for (std::size_t i = 0; i < candidates_->groups().size(); ++i) groups.push_back(ItemOf(i));
        SetListItems(control(kGroupsID), groups);
        if (!groups.empty()) SetListSelection(control(kGroupsID), {groups.front()});
        groupsWereChosen();
    }

    /// Null: there is nothing to say.
    void showNote(const Owned<CFStringRef>& note) const {
        SetControlTitleWithCFString(control(kNoteID), note ? note.get() : CFSTR(""));
        note ? ShowControl(control(kNoteID)) : HideControl(control(kNoteID));
    }

    static OSStatus FaxABPickerItemData(ControlRef list, ListItem item, OSType column,
                                        CFStringRef* text, void* picker) {
        return WithoutExceptions(kListPropertyNotSupportedErr, [&]() -> OSStatus {
            const auto& self = *static_cast<const FaxABPicker*>(picker);
            if (!self.candidates_) return kListPropertyNotSupportedErr;
            const auto whole = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(
                list == self.control(kGroupsID) ? self.candidates_->groups()[IndexOf(item)].name
                                                : self.candidates_->text(IndexOf(item), column)));
            *text = CopyShortened(whole, kLongestText).detach();
            return noErr;
        });
    }

    [[nodiscard]] bool FaxABPickerItemCompare(Index left, Index right) const {
        return candidates_->isBefore(left, right, sort_);
    }

    void FaxABPickerItemNotification(SInt32 id, UInt32 kind) {
        if (!candidates_) return;
        if (id == kGroupsID && kind == kEventListSelectionChanged) groupsWereChosen();
        if (id != kCandidatesID) return;
        if (kind == kEventListSelectionChanged) showCount();
        if (kind == kEventListSortChanged) {
            sortMembers();
            SetListItems(control(kCandidatesID), itemsSearchedFor());
        }
        if (kind == kEventListItemOpened) SimulateControlHit(control(kAddID));
    }

    void groupsWereChosen() {
        const auto groups = GetListSelection(control(kGroupsID));
        members_.clear();
        if (groups.size() == 1)
            members_ = candidates_->groups()[IndexOf(groups.front())].candidates;
        sortMembers();
        UpdatePersonBrowser();
    }

    void sortMembers() {
        sort_ = GetListSort(control(kCandidatesID));
        std::ranges::sort(members_, [this](Index left, Index right) {
            return FaxABPickerItemCompare(left, right);
        });
    }

    void UpdatePersonBrowser() {
        const ControlRef list = control(kCandidatesID);
        const std::vector<ListItem> found = itemsSearchedFor();
        SetListItems(list, {});  // nothing stays selected
        SetListItems(list, found);
        // Who searches and presses Return means what was found, not the whole group.
        if (isSearching() && !found.empty()) SetListSelection(list, {found.front()});
        ScrollListToTop(list);
        showCount();
    }

    [[nodiscard]] Owned<CFStringRef> typed() const {
        return Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(control(kSearchID)));
    }
    [[nodiscard]] bool isSearching() const { return CFStringGetLength(typed()) > 0; }

    /// Of the one group that is selected, in the chosen order.
    [[nodiscard]] std::vector<ListItem> itemsSearchedFor() const {
        const std::string sought = contacts::Folded(CFStringToUTF8(typed()));
        std::vector<ListItem> items;
        items.reserve(members_.size());
        for (const Index member : members_)
            if (sought.empty() || candidates_->matches(member, sought))
                items.push_back(ItemOf(member));
        return items;
    }

    /// The selected candidates of one group, else all of all selected groups, group by group.
    [[nodiscard]] std::vector<Index> chosen() const {
        std::vector<Index> chosen;
        if (!candidates_) return chosen;
        const auto groups = GetListSelection(control(kGroupsID));
        if (groups.size() == 1)
            std::ranges::transform(GetListSelection(control(kCandidatesID)),
                                   std::back_inserter(chosen), IndexOf);
        if (!chosen.empty()) return chosen;
        for (const ListItem group : groups) {
            const auto& all = candidates_->groups()[IndexOf(group)].candidates;
            chosen.insert(chosen.end(), all.begin(), all.end());
        }
        return chosen;
    }

    /// How many recipients the button would add: while one group is searched, none but those that
    /// are selected.
    void showCount() const {
        const bool isMeant = !isSearching() || GetListSelection(control(kGroupsID)).size() != 1 ||
                             !GetListSelection(control(kCandidatesID)).empty();
        const auto count = isMeant ? static_cast<SInt32>(chosen().size()) : 0;
        const auto format = CopyText(bundle(), CFSTR("Recipients To Add"), kFaxTextTable);
        SetControlTitleWithCFString(
            control(kCountID), Owned<CFStringRef>::Adopt(CFStringCreateWithFormat(
                                   kCFAllocatorDefault, format, CFTypeRef{CreateNumber(count)})));
        enable(kAddID, count > 0);
    }

    SInt32 AddSelectedRecordsToRecipientList() {
        const std::vector<Index> added = chosen();
        const auto count = static_cast<CFIndex>(added.size());
        if (count + model_->list->count() > kMaxFaxRecipients) return refuse(count), 0;
        SInt32 last = 1;
        for (const Index candidate : added) last = add(candidate);
        return count == 1 ? last : 1;
    }

    void refuse(CFIndex count) const {
        const CFIndex left = std::max(kMaxFaxRecipients - model_->list->count(), CFIndex{0});
        const auto numbers = {CreateNumber(static_cast<SInt32>(count)),
                              CreateNumber(static_cast<SInt32>(kMaxFaxRecipients)),
                              CreateNumber(static_cast<SInt32>(left))};
        const std::vector<CFTypeRef> arguments(numbers.begin(), numbers.end());
        ShowNoticeWithKeys(bundle(),
                           {.header = CFSTR("Max Recipients Header"),
                            .message = CFSTR("Max Recipients Message"),
                            .table = kFaxTextTable},
                           arguments.data(), static_cast<CFIndex>(arguments.size()));
    }

    SInt32 add(Index candidate) {
        FaxRecipient* const recipient = CreateRecipientFromEntry(
            bundle(), candidates_->personOf(candidate), candidates_->entryOf(candidate));
        const SInt32 result = AddRecipient(model_, recipient);
        FaxRecipientRelease(recipient);
        return result;
    }

    FaxRecipientsModel* model_;  // lent
    WorkerRef worker_;
    std::stop_source stop_;
    std::shared_ptr<const PickerCandidates> candidates_;  // null until they are read
    std::vector<Index> members_;                          // of the one group that is selected
    ListSort sort_;
};

}  // namespace

SInt32 RunModalFaxABPicker(FaxRecipientsModel* model) { return FaxABPicker(model).run(); }

}  // namespace kalmo
