#include "fax/picker_loading.h"

#include "fax/fax_address_book.h"
#include "fax/fax_options.h"
#include "settings/dictionary.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

using contacts::Code;

Owned<CFStringRef> Formatted(CFStringRef format, CFTypeRef argument) {
    return Owned<CFStringRef>::Adopt(
        CFStringCreateWithFormat(kCFAllocatorDefault, format, argument));
}

Owned<CFStringRef> FallbackText(CFBundleRef bundle, const PickerLoad& load) {
    if (load.fallbackFolder.empty()) return {};
    const auto format = load.fallbackCode == Code::timedOut
                            ? CopyText(bundle, CFSTR("Desktop Timed Out Message"), kFaxTextTable)
                            : CopyText(bundle, CFSTR("Desktop Unavailable Message"), kFaxTextTable);
    return Formatted(format,
                     Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(load.fallbackFolder)));
}

Owned<CFStringRef> EmptyText(CFBundleRef bundle, const PickerLoad& load) {
    if (load.candidates->count() > 0) return {};
    return load.isEmpty ? CopyText(bundle, CFSTR("Address Book Empty Message"), kFaxTextTable)
                        : CopyText(bundle, CFSTR("No Telephones Message"), kFaxTextTable);
}

Owned<CFStringRef> PassedOverText(CFBundleRef bundle, const PickerLoad& load) {
    if (load.passedOver == 0) return {};
    if (load.passedOver == 1)
        return CopyText(bundle, CFSTR("One Record Passed Over Message"), kFaxTextTable);
    return Formatted(CopyText(bundle, CFSTR("Records Passed Over Message"), kFaxTextTable),
                     CreateNumber(static_cast<SInt32>(load.passedOver)));
}

}  // namespace

PickerWords CopyPickerWords(CFBundleRef bundle) {
    PickerWords words;
    for (std::size_t i = 0; i < words.labels.size(); ++i)
        words.labels[i] = CFStringToUTF8(CopyLabelWord(bundle, static_cast<contacts::Label>(i)));
    words.noGroup = CFStringToUTF8(CopyText(bundle, CFSTR("No Group"), kFaxTextTable));
    words.namelessGroup = CFStringToUTF8(CopyText(bundle, CFSTR("Nameless Group"), kFaxTextTable));
    return words;
}

PickerLoad LoadPicker(const contacts::Settings& settings, PickerWords words,
                      const std::stop_token& stop) {
    const contacts::Opened opened = contacts::OpenAddressBook(settings, stop);
    if (!opened.book) return {.answer = opened.answer};
    contacts::Contacts contacts;
    PickerLoad load{.answer = opened.book->load(contacts, stop)};
    if (!load.answer) return load;
    load.isEmpty = contacts.persons.empty();
    load.passedOver = contacts.passedOver;
    if (settings.source == contacts::Source::automatic &&
        opened.source == contacts::Source::folder) {
        load.fallbackFolder = opened.folder.string();
        load.fallbackCode = opened.answer.code;
    }
    load.candidates =
        std::make_shared<const PickerCandidates>(std::move(contacts), std::move(words));
    return load;
}

Owned<CFStringRef> CopyPickerNote(CFBundleRef bundle, const PickerLoad& load) {
    if (!load.candidates) return CopyAddressBookTrouble(bundle, load.answer);
    TextParts parts;
    for (const auto& text :
         {EmptyText(bundle, load), FallbackText(bundle, load), PassedOverText(bundle, load)})
        parts.add(text);
    auto note = Owned<CFStringRef>::Adopt(parts.joined(CFSTR(" ")));
    return CFStringGetLength(note) > 0 ? note : Owned<CFStringRef>();
}

}  // namespace kalmo
