// A folder of vCards that is the user's address book as long as it lives.
#pragma once

#include "contacts/address_book.h"
#include "support/test.h"

namespace kalmo::test {

struct CardFolder {
    explicit CardFolder(const std::filesystem::path& at = MakeFolder("cards")) : folder(at) {
        contacts::SetSettings({.source = contacts::Source::folder, .folder = folder});
    }
    ~CardFolder() { contacts::SetSettings({}); }
    CardFolder(const CardFolder&) = delete;
    CardFolder& operator=(const CardFolder&) = delete;

    /// `lines` of properties, each ended by a line feed.
    void add(const std::string& uid, const std::string& lines) const {
        WriteFile(folder / (uid + ".vcf"),
                  "BEGIN:VCARD\nVERSION:3.0\nUID:" + uid + "\n" + lines + "END:VCARD\n");
    }
    void addGroup(const std::string& name, const std::vector<std::string>& members) const {
        std::string lines = "N:" + name + ";;;;\nFN:" + name + "\nX-ADDRESSBOOKSERVER-KIND:group\n";
        for (const std::string& uid : members)
            lines += "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:" + uid + "\n";
        add("group-" + name, lines);
    }
    [[nodiscard]] contacts::Contacts read() const {
        contacts::Contacts contacts;
        EXPECT_TRUE(contacts::OpenFolder(folder)->load(contacts, {}));
        return contacts;
    }

    std::filesystem::path folder;
};

}  // namespace kalmo::test
