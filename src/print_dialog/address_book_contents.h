// What an address book holds, as the settings of the address book show it.
#pragma once

#include <cstddef>
#include <stop_token>
#include <string>
#include <vector>

#include "contacts/address_book.h"

namespace kalmo {

struct ListedPerson {
    std::string uid;
    std::string name;    // as it is shown: with the organization, where there is one
    std::string folded;  // the same, to be searched
};

struct AddressBookContents {
    contacts::Opened opened;
    contacts::Answer answer;  // why there is nothing to be seen, unless it is done
    std::size_t persons = 0, groups = 0, passedOver = 0;
    std::vector<ListedPerson> people;  // those with a name, in the order of the user's language
    std::string me;                    // uid of the user's own card; empty without one
};

/// On a worker: it may block until a stop is requested.
[[nodiscard]] AddressBookContents ReadAddressBook(const contacts::Settings& settings,
                                                  const std::stop_token& stop);

}  // namespace kalmo
