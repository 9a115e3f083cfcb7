#include "fax/fax_address_book.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

#include "fax/fax_options.h"
#include "shell/base/panel_interface.h"
#include "shell/base/plugin_bundle.h"
#include "shell/base/texts.h"
#include "toolbox/waiting.h"

namespace kalmo {
namespace {

using contacts::Code;
using contacts::Label;

constexpr struct LabelRow {
    Label label;
    const char* key;
} kLabels[] = {
    {Label::workFax, "Work Fax Label"},   {Label::homeFax, "Home Fax Label"},
    {Label::otherFax, "Other Fax Label"}, {Label::work, "Work Label"},
    {Label::home, "Home Label"},          {Label::mobile, "Mobile Label"},
    {Label::main, "Main Label"},          {Label::pager, "Pager Label"},
    {Label::other, "Other Label"},        {Label::custom, "Other Label"},
};

constexpr struct TroubleRow {
    Code code;
    const char* key;
} kTroubles[] = {
    {Code::unavailable, "Address Book Unavailable Message"},
    {Code::timedOut, "Address Book Timed Out Message"},
    {Code::notFound, "Address Book Not Found Message"},
    {Code::conflict, "Address Book Conflict Message"},
    {Code::readOnly, "Address Book Read Only Message"},
    {Code::noSpace, "Address Book No Space Message"},
    {Code::failed, "Address Book Failed Message"},
};

constexpr CFIndex kLongestLogLine = 1000;

CFStringRef CreateIfGiven(const std::string& text) {
    return text.empty() ? nullptr : CFStringCreateFromUTF8(text);
}

/// The first field of the account's description; empty without one.
std::string AccountName() {
    std::array<char, 4096> buffer;
    passwd entry, *found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found)
        return {};
    const std::string_view described = found->pw_gecos ? found->pw_gecos : "";
    const std::string name(described.substr(0, described.find(',')));
    return name.empty() ? found->pw_name : name;
}

}  // namespace

bool AskAddressBook(
    std::function<void(const contacts::Opened& opened, const std::stop_token& stop)> work) {
    const CFBundleRef bundle = GetPDEBundle();
    return RunAndWait(
        {.message = CopyText(bundle, CFSTR("Waiting For Address Book"), kFaxTextTable),
         .cancelButton = CopyText(bundle, CFSTR("Cancel Command"))},
        [settings = contacts::CurrentSettings(), work = std::move(work)](std::stop_token stop) {
            WithoutExceptions(noErr, [&] {
                work(contacts::OpenAddressBook(settings, stop), stop);
                return noErr;
            });
        });
}

PersonNames NamesOf(const contacts::Person& person) {
    PersonNames names = person.isCompany ? PersonNames{.first = person.organization, .last = {}}
                                         : PersonNames{.first = person.first, .last = person.last};
    if (names.first.empty() && names.last.empty()) names.first = person.full;
    return names;
}

void RecipientNamesFromPerson(const contacts::Person& person, CFStringRef* firstName,
                              CFStringRef* lastName) {
    const PersonNames names = NamesOf(person);
    *firstName = CreateIfGiven(names.first);
    *lastName = CreateIfGiven(names.last);
}

Owned<CFStringRef> CopyLabelWord(CFBundleRef bundle, Label label) {
    const auto* const row = std::ranges::find(kLabels, label, &LabelRow::label);
    return CopyText(bundle, CFStringMakeConstant(row->key), kFaxTextTable);
}

const contacts::Entry* PrimaryEmail(const contacts::Person& person) {
    const auto primary = std::ranges::min_element(person.emails, {}, &contacts::Entry::rank);
    return primary == person.emails.end() ? nullptr : &*primary;
}

const contacts::Entry* PrimaryTelephone(const contacts::Person& person) {
    const contacts::Entry* primary = nullptr;
    for (const contacts::Entry& phone : person.phones) {
        if (IsFax(phone.label) || phone.label == Label::pager) continue;
        if (!primary || phone.rank < primary->rank) primary = &phone;
    }
    return primary;
}

CFStringRef CopyLocalizedLabel(CFBundleRef bundle, const contacts::Entry& entry) {
    if (entry.label == Label::custom && !entry.customLabel.empty())
        return CFStringCreateFromUTF8(entry.customLabel);
    return CopyLabelWord(bundle, entry.label).detach();
}

Owned<CFStringRef> CopyAddressBookTrouble(CFBundleRef bundle, const contacts::Answer& answer) {
    const auto* const row = std::ranges::find(kTroubles, answer.code, &TroubleRow::code);
    if (row == std::end(kTroubles)) return {};
    // It may name what a card or a file brought.
    const auto line = CopyShortened(Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(answer.text)),
                                    kLongestLogLine);
    std::fprintf(stderr, "Address book: %s\n", CFStringToUTF8(line).c_str());
    return CopyText(bundle, CFStringMakeConstant(row->key), kFaxTextTable);
}

std::unique_ptr<contacts::Person> CopyMyCard() {
    const auto found = std::make_shared<contacts::Person>();
    const bool isAnswered =
        AskAddressBook([found](const contacts::Opened& opened, const std::stop_token& stop) {
            contacts::Person person;
            if (!opened.book || !opened.book->me(person, stop)) person = {};
            if (person == contacts::Person{}) person.full = AccountName();
            *found = std::move(person);
        });
    return isAnswered ? std::make_unique<contacts::Person>(std::move(*found)) : nullptr;
}

}  // namespace kalmo
