// The address book as a folder of vCard files, one for each record, that other programs share.
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <mutex>
#include <unordered_map>
#include <unordered_set>

#include "contacts/address_book.h"
#include "contacts/card_folder.h"
#include "contacts/card_mapping.h"
#include "contacts/vcard_text.h"

namespace contacts {

namespace {

constexpr std::string_view kSuffix = ".vcf";
/// Names the user's own card by its uid. Without a suffix it is no card to other programs.
constexpr const char* kOwnCardFile = "me";
constexpr std::size_t kLargestUid = 4096;
constexpr std::size_t kLongestName = 200;
/// Of saves that find another version each time, though none was asked for.
constexpr int kMostTries = 20;

std::string& UidOf(Record& record) {
    return std::visit([](auto& it) -> std::string& { return it.uid; }, record);
}

/// A card without a uid goes by its file's name; only other cards of one file need a number.
void NameRecord(Record& record, const std::string& file, std::size_t index) {
    std::string& uid = UidOf(record);
    if (!uid.empty()) return;
    uid = file.substr(0, file.size() - kSuffix.size());
    if (index > 0) uid += '#' + std::to_string(index + 1);
}

std::vector<Record> RecordsOf(const std::string& file, const StoredFile& stored) {
    std::vector<Record> records = ReadCards(stored.bytes);
    for (std::size_t i = 0; i < records.size(); ++i) {
        NameRecord(records[i], file, i);
        std::visit([&](auto& it) { it.revision = stored.revision; }, records[i]);
    }
    return records;
}

bool IsFileName(std::string_view uid) {
    const auto plain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               std::string_view("._@+-").find(c) != std::string_view::npos;
    };
    return !uid.empty() && uid.size() <= kLongestName && !uid.starts_with('.') &&
           std::ranges::all_of(uid, plain);
}

Code CodeOf(int error) {
    switch (error) {
        case 0:
            return Code::done;
        case ENOSPC:
        case EDQUOT:
            return Code::noSpace;
        case EACCES:
        case EPERM:
        case EROFS:
            return Code::readOnly;
        case ECANCELED:
            return Code::cancelled;
        case ENOTDIR:
            return Code::unavailable;
        case ETIMEDOUT:
            return Code::timedOut;
        case ESTALE:
            return Code::conflict;
        default:
            return Code::failed;
    }
}

std::optional<std::string> Applied(std::string_view existing, const Person& person) {
    return ApplyPerson(existing, person);
}
std::optional<std::string> Applied(std::string_view existing, const Group& group) {
    return ApplyGroup(existing, group);
}

class FolderBook final : public AddressBook {
public:
    explicit FolderBook(std::filesystem::path path) : path_(std::move(path)) {}

    Answer load(Contacts& contacts, const std::stop_token& stop) override;
    Answer person(const std::string& uid, Person& person, const std::stop_token& stop) override;
    Answer save(Changes& changes, const std::stop_token& stop) override;
    Answer me(Person& person, const std::stop_token& stop) override;
    Answer setMe(const std::string& uid, const std::stop_token& stop) override;

private:
    struct Found {
        std::string name;
        StoredFile file;
        std::vector<Record> records;
        std::size_t index = 0;  // of the record in its file
    };
    using Names = std::unordered_map<std::string, std::string>;

    [[nodiscard]] Answer answer(int error, const std::string& name) const;
    Answer openToRead(CardFolder& folder) const;
    Answer openToWrite(CardFolder& folder, const std::stop_token& stop) const;
    /// False when no card of that uid is in the file.
    static bool lookInto(const CardFolder& folder, const std::string& name, const std::string& uid,
                         Found& found);
    Answer find(const CardFolder& folder, const std::string& uid, const std::stop_token& stop,
                Found& found);
    template <typename T>
    Answer store(const CardFolder& folder, T& record, const std::stop_token& stop);
    template <typename T>
    Answer edit(const CardFolder& folder, T& record, Found& found) const;
    template <typename T>
    Answer create(const CardFolder& folder, T& record);
    void remember(const std::string& uid, const std::string& name);
    [[nodiscard]] std::string remembered(const std::string& uid);

    const std::filesystem::path path_;
    std::mutex mutex_;
    Names names_;  // of files that are not named for their uid, as they were last seen
};

Answer FolderBook::answer(int error, const std::string& name) const {
    if (error == 0) return {};
    return {CodeOf(error), (path_ / name).string() + ": " + std::strerror(error)};
}

Answer FolderBook::openToRead(CardFolder& folder) const {
    const int error = folder.open(path_, CardFolder::Missing::fails);
    if (error == 0) return {};
    return {error == ENOENT ? Code::notFound : Code::unavailable,
            path_.string() + ": " + std::strerror(error)};
}

Answer FolderBook::openToWrite(CardFolder& folder, const std::stop_token& stop) const {
    if (path_.empty()) return {Code::unavailable, "No folder for the address book"};
    const int error = folder.open(path_, CardFolder::Missing::isMade);
    return answer(error != 0 ? error : folder.lock(stop), "");
}

void FolderBook::remember(const std::string& uid, const std::string& name) {
    const std::lock_guard lock(mutex_);
    if (name != uid + std::string(kSuffix)) names_[uid] = name;
}

std::string FolderBook::remembered(const std::string& uid) {
    const std::lock_guard lock(mutex_);
    const auto found = names_.find(uid);
    return found == names_.end() ? uid + std::string(kSuffix) : found->second;
}

/// Takes the records of files as they come; the first of several with one uid counts.
class Collector final {
public:
    explicit Collector(Contacts& contacts) : contacts_(contacts) {}
    /// The file's name is for those that are not named for their uid.
    void take(const std::string& name, const StoredFile& file) {
        std::vector<Record> records = RecordsOf(name, file);
        if (records.empty()) ++contacts_.passedOver;
        for (Record& record : records) {
            const std::string& uid = UidOf(record);
            if (!uids_.insert(uid).second) {
                ++contacts_.passedOver;
                continue;
            }
            if (name != uid + std::string(kSuffix)) names[uid] = name;
            add(std::move(record));
        }
    }
    [[nodiscard]] bool has(const std::string& uid) const { return uids_.contains(uid); }
    std::unordered_map<std::string, std::string> names;

private:
    void add(Record record) {
        if (auto* const person = std::get_if<Person>(&record)) {
            contacts_.persons.push_back(std::move(*person));
        } else {
            contacts_.groups.push_back(std::move(std::get<Group>(record)));
        }
    }
    Contacts& contacts_;
    std::unordered_set<std::string> uids_;
};

std::string OwnUid(const CardFolder& folder) {
    StoredFile file;
    if (folder.read(kOwnCardFile, kLargestUid, file) != 0) return "";
    return std::string(Trimmed(file.bytes));
}

Answer FolderBook::load(Contacts& contacts, const std::stop_token& stop) {
    contacts = {};
    CardFolder folder;
    Answer opened = openToRead(folder);
    if (opened.code == Code::notFound) return {};
    if (!opened) return opened;
    folder.removeLeftovers();
    std::vector<std::string> files;
    if (const int error = folder.list(files)) return answer(error, "");
    Collector collector(contacts);
    StoredFile file;
    for (const std::string& name : files) {
        if (stop.stop_requested()) return answer(ECANCELED, name);
        const int error = folder.read(name, kLargestCard, file);
        if (error == 0) collector.take(name, file);
        if (error != 0 && error != ENOENT) ++contacts.passedOver;  // it may just have gone
    }
    const std::string own = OwnUid(folder);
    if (collector.has(own)) contacts.me = own;
    const std::lock_guard lock(mutex_);
    names_ = std::move(collector.names);
    return {};
}

bool FolderBook::lookInto(const CardFolder& folder, const std::string& name, const std::string& uid,
                          Found& found) {
    if (folder.read(name, kLargestCard, found.file) != 0) return false;
    found.name = name;
    found.records = RecordsOf(name, found.file);
    const auto record =
        std::ranges::find_if(found.records, [&](Record& it) { return UidOf(it) == uid; });
    found.index = static_cast<std::size_t>(record - found.records.begin());
    return record != found.records.end();
}

Answer FolderBook::find(const CardFolder& folder, const std::string& uid,
                        const std::stop_token& stop, Found& found) {
    const std::string likely = remembered(uid);
    const bool isName = likely.find('/') == std::string::npos && !likely.starts_with('.');
    if (isName && lookInto(folder, likely, uid, found)) return {};
    std::vector<std::string> files;
    if (const int error = folder.list(files)) return answer(error, "");
    for (const std::string& name : files) {
        if (stop.stop_requested()) return answer(ECANCELED, name);
        if (!lookInto(folder, name, uid, found)) continue;
        remember(uid, name);
        return {};
    }
    return {Code::notFound, path_.string() + ": No card of the uid " + uid};
}

Answer FolderBook::person(const std::string& uid, Person& person, const std::stop_token& stop) {
    CardFolder folder;
    Found found;
    Answer opened = openToRead(folder);
    if (!opened) return opened;
    Answer looked = find(folder, uid, stop, found);
    if (!looked) return looked;
    const auto* const record = std::get_if<Person>(&found.records[found.index]);
    if (!record) return {Code::notFound, path_.string() + ": A group has the uid " + uid};
    person = *record;
    return {};
}

template <typename T>
Answer FolderBook::create(const CardFolder& folder, T& record) {
    T stored = record;
    if (stored.uid.empty()) stored.uid = NewUid();
    const std::string text = Applied("", stored).value_or("");
    std::string name = (IsFileName(stored.uid) ? stored.uid : NewUid()) + std::string(kSuffix);
    StoredFile file;
    int error = folder.create(name, text, file);
    // A file that is no card of ours has the name: it stays.
    if (error == EEXIST) error = folder.create(name = NewUid() + std::string(kSuffix), text, file);
    if (error != 0) return answer(error, name);
    record.uid = stored.uid;
    record.revision = file.revision;
    remember(record.uid, name);
    return {};
}

template <typename T>
Answer FolderBook::edit(const CardFolder& folder, T& record, Found& found) const {
    if (!record.revision.empty() && record.revision != found.file.revision) {
        return answer(ESTALE, found.name);
    }
    if (found.records.size() > 1) {
        return {Code::readOnly, (path_ / found.name).string() + ": There are several cards in it"};
    }
    const auto text = Applied(found.file.bytes, record);
    if (!text) return {Code::notFound, (path_ / found.name).string() + ": A card of another kind"};
    if (text->size() > kLargestCard) return answer(EFBIG, found.name);
    if (!(found.file.mode & S_IWUSR)) return answer(EACCES, found.name);
    const int error = *text == found.file.bytes ? 0 : folder.replace(found.name, *text, found.file);
    if (error == 0) record.revision = found.file.revision;
    return answer(error, found.name);
}

template <typename T>
Answer FolderBook::store(const CardFolder& folder, T& record, const std::stop_token& stop) {
    if (record.uid.empty()) return create(folder, record);
    for (int i = 0;; ++i) {
        Found found;
        Answer looked = find(folder, record.uid, stop, found);
        if (looked.code == Code::notFound && record.revision.empty()) return create(folder, record);
        if (looked.code == Code::notFound) return {Code::conflict, looked.text};
        if (!looked) return looked;
        Answer edited = edit(folder, record, found);
        const bool again = edited.code == Code::conflict && record.revision.empty();
        if (!again || i == kMostTries) return edited;
    }
}

Answer FolderBook::save(Changes& changes, const std::stop_token& stop) {
    CardFolder folder;
    Answer answer = openToWrite(folder, stop);
    const auto storeEach = [&](auto& records) {
        for (auto& record : records) {
            if (!answer) return;
            answer =
                stop.stop_requested() ? this->answer(ECANCELED, "") : store(folder, record, stop);
        }
    };
    storeEach(changes.persons);
    storeEach(changes.groups);
    return answer;
}

Answer FolderBook::me(Person& person, const std::stop_token& stop) {
    CardFolder folder;
    Answer opened = openToRead(folder);
    if (!opened) return opened;
    const std::string uid = OwnUid(folder);
    if (uid.empty()) return {Code::notFound, (path_ / kOwnCardFile).string() + ": Names no card"};
    return this->person(uid, person, stop);
}

Answer FolderBook::setMe(const std::string& uid, const std::stop_token& stop) {
    CardFolder folder;
    Answer opened = openToWrite(folder, stop);
    if (!opened) return opened;
    if (uid.empty()) return answer(folder.remove(kOwnCardFile), kOwnCardFile);
    if (uid.size() >= kLargestUid) return answer(ENAMETOOLONG, kOwnCardFile);
    Person person;
    Answer looked = this->person(uid, person, stop);
    if (!looked) return looked;
    StoredFile file;
    const int error = folder.read(kOwnCardFile, kLargestUid, file);
    if (error != 0 && error != ENOENT) return answer(error, kOwnCardFile);
    return answer(folder.replace(kOwnCardFile, uid + '\n', file), kOwnCardFile);
}

}  // namespace

std::shared_ptr<AddressBook> OpenFolder(const std::filesystem::path& folder) {
    return std::make_shared<FolderBook>(folder);
}

}  // namespace contacts
