// Another program of the desktop: adds the vCard that it reads to the default address book.
#include <libebook/libebook.h>

#include <iostream>
#include <iterator>
#include <string>

int main() {
    const std::string card{std::istreambuf_iterator<char>(std::cin), {}};
    GError* error = nullptr;
    ESourceRegistry* registry = e_source_registry_new_sync(nullptr, &error);
    if (!registry) return 1;
    ESource* source = e_source_registry_ref_default_address_book(registry);
    EClient* client = e_book_client_connect_sync(source, G_MAXUINT32, nullptr, &error);
    if (!client) return 1;
    EContact* contact = e_contact_new_from_vcard(card.c_str());
    return e_book_client_add_contact_sync(E_BOOK_CLIENT(client), contact,
                                          E_BOOK_OPERATION_FLAG_NONE, nullptr, nullptr, &error)
               ? 0
               : 1;
}
