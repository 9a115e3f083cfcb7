// Untrusted string tables, and their texts used as formats.
#include "foundation/strings_table.h"

#include <cstdint>

#include "foundation/string.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const StringsTable table = ReadStringsTable({reinterpret_cast<const char*>(bytes), size});
    for (const auto& [key, text] : table.texts) {
        const auto format = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(text));
        const auto filled = Owned<CFStringRef>::Adopt(
            CFStringCreateWithFormat(nullptr, format.get(), CFSTR("argument"), CFSTR("two")));
        (void)CFStringGetLength(filled);
    }
    return 0;
}
