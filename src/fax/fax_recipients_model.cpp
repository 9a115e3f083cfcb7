#include "fax/fax_recipients_model.h"

#include <algorithm>
#include <bit>
#include <string>
#include <unordered_set>
#include <utility>

#include "contacts/collation.h"
#include "fax/fax_options.h"
#include "shell/base/notices.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

/// What a ticket brings may be long, and hold line feeds.
constexpr CFIndex kLongestText = 200;
Owned<CFStringRef> Shown(CFStringRef text) { return CopyShortened(text, kLongestText); }

constexpr SInt32 kWideColumn = 116, kNarrowColumn = 66;

/// Texts that a recipient does not have, and those of recipients, are null.
using TextOf = Owned<CFStringRef> (*)(const FaxRecipient& recipient);
template <CFStringRef (FaxRecipient::*field)() const>
Owned<CFStringRef> FieldOf(const FaxRecipient& recipient) {
    return Owned<CFStringRef>::Retain((recipient.*field)());
}
Owned<CFStringRef> NameOf(const FaxRecipient& recipient) {
    return Owned<CFStringRef>::Adopt(DisplayNameFromRecipient(&recipient));
}

constexpr struct Column {
    OSType type;
    const char* titleKey;
    TextOf text;
    SInt32 width;
} kColumns[] = {
    {'name', "Name", NameOf, kWideColumn},
    {'faxn', "Fax Number", FieldOf<&FaxRecipient::faxNumber>, kWideColumn},
    {'orga', "Organization", FieldOf<&FaxRecipient::organization>, kWideColumn},
    {'phon', "Phone Number", FieldOf<&FaxRecipient::phoneNumber>, kWideColumn},
    {'mail', "E-mail Address", FieldOf<&FaxRecipient::emailAddress>, kWideColumn},
    {'mbox', "Mailbox", FieldOf<&FaxRecipient::mailbox>, kNarrowColumn},
};

/// An item is the address of its recipient, which lives as long as it is shown.
ListItem ItemOf(const FaxRecipient* recipient) { return std::bit_cast<ListItem>(recipient); }
FaxRecipient* RecipientOf(ListItem item) { return std::bit_cast<FaxRecipient*>(item); }

const Column* ColumnOf(OSType type) {
    const auto* const column = std::ranges::find(kColumns, type, &Column::type);
    return column == std::end(kColumns) ? nullptr : column;
}

OSStatus TextOfItem(ControlRef, ListItem item, OSType type, CFStringRef* text, void*) {
    const Column* const column = ColumnOf(type);
    if (!column) return kListPropertyNotSupportedErr;
    const auto whole = column->text(*RecipientOf(item));
    *text = whole ? Shown(whole).detach() : nullptr;
    return *text ? noErr : kListPropertyNotSupportedErr;
}

void SortAsChosen(ControlRef listView, std::vector<FaxRecipient*>& recipients) {
    const ListSort sort = GetListSort(listView);
    const Column* const column = ColumnOf(sort.column);
    if (!column) return;
    std::vector<std::pair<std::string, FaxRecipient*>> keyed;
    for (FaxRecipient* recipient : recipients)
        keyed.emplace_back(contacts::SortKey(CFStringToUTF8(column->text(*recipient))), recipient);
    const auto byKey = [&](const auto& left, const auto& right) {
        return sort.isDescending ? right.first < left.first : left.first < right.first;
    };
    std::ranges::stable_sort(keyed, byKey);
    std::ranges::transform(keyed, recipients.begin(), [](const auto& pair) { return pair.second; });
}

bool MayAdd(const FaxRecipientsModel& model, const FaxRecipient* recipient) {
    if (model.promptDuplicate != 1 || !model.list->containsRecipient(recipient)) return true;
    const auto number = Shown(recipient->faxNumber()), name = Shown(NameOf(*recipient));
    // The number first: the text's places count on it.
    const CFTypeRef arguments[] = {number, name};
    return AskWithKeys(model.bundle,
                       {.header = CFSTR("Duplicate Recipient Header"),
                        .message = CFSTR("Duplicate Recipient Message"),
                        .table = kFaxTextTable},
                       CFSTR("Yes Command"), CFSTR("No Command"), arguments, 2);
}

bool MayRemove(const FaxRecipientsModel& model, const std::vector<FaxRecipient*>& selected) {
    if (model.promptRemove != 1) return true;
    const auto ask = [&](const NoticeKeys& keys, const CFTypeRef* arguments, CFIndex count) {
        return AskWithKeys(model.bundle, keys, CFSTR("Remove Command"), CFSTR("Cancel Command"),
                           arguments, count);
    };
    if (selected.size() > 1)
        return ask({.header = CFSTR("Remove Multiple Recipients Header"),
                    .message = CFSTR("Remove Multiple Recipients Message"),
                    .table = kFaxTextTable},
                   nullptr, 0);
    // Who has no name goes by the number.
    const auto name = NameOf(*selected.front());
    const auto shown = Shown(
        CFStringGetLength(name) > 0 ? name : FieldOf<&FaxRecipient::faxNumber>(*selected.front()));
    const CFTypeRef arguments[] = {shown};
    return ask({.header = CFSTR("Remove One Recipient Header"),
                .message = CFSTR("Remove One Recipient Message"),
                .table = kFaxTextTable},
               arguments, 1);
}

}  // namespace

SInt32 AddRecipient(FaxRecipientsModel* model, FaxRecipient* recipient) {
    if (!MayAdd(*model, recipient)) return 0;
    model->list->append(recipient);
    if (model->listView) AddListItems(model->listView, {ItemOf(recipient)});
    model->isLengthCheckArmed = true;
    return 1;
}

bool RemoveRecipients(std::vector<FaxRecipient*> recipients, FaxRecipientsModel* model) {
    if (recipients.empty() || !MayRemove(*model, recipients)) return false;
    const std::unordered_set<FaxRecipient*> removed(recipients.begin(), recipients.end());
    for (CFIndex i = model->list->count() - 1; i >= 0; --i)
        if (removed.contains(model->list->recipientAtIndex(i))) model->list->removeAtIndex(i);
    if (model->listView) ShowRecipients(model->listView, *model->list);
    return true;
}

bool RemoveSelectedRecipients(ControlRef listView, FaxRecipientsModel* model) {
    return RemoveRecipients(SelectedRecipients(listView), model);
}

void SetUpRecipientView(CFBundleRef bundle, ControlRef listView) {
    SetListTextProc(listView, TextOfItem, nullptr);
    for (const Column& column : kColumns)
        AddListColumn(listView, column.type,
                      CopyText(bundle, CFStringMakeConstant(column.titleKey), kFaxTextTable),
                      column.width);
    SetListSelectsMany(listView, true);
    SetListSortable(listView, true);
}

void ShowRecipients(ControlRef listView, std::vector<FaxRecipient*> recipients) {
    SortAsChosen(listView, recipients);
    std::vector<ListItem> items;
    std::unordered_set<FaxRecipient*> shown;
    for (FaxRecipient* recipient : recipients)
        if (shown.insert(recipient).second) items.push_back(ItemOf(recipient));
    SetListItems(listView, items);
    RefreshListItems(listView);
}

void ShowRecipients(ControlRef listView, const FaxRecipientList& list) {
    std::vector<FaxRecipient*> recipients;
    for (CFIndex i = 0; i < list.count(); ++i) recipients.push_back(list.recipientAtIndex(i));
    ShowRecipients(listView, std::move(recipients));
}

std::vector<FaxRecipient*> SelectedRecipients(ControlRef listView) {
    std::vector<FaxRecipient*> selected;
    for (const ListItem item : GetListSelection(listView)) selected.push_back(RecipientOf(item));
    return selected;
}

}  // namespace kalmo
