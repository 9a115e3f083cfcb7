// What of a fax number is dialed.
#include "fax/dialing_string.h"

#include "support/test.h"

namespace kalmo::test {
namespace {

TEST(DialingString, KeepsWhatThePrinterDials) {
    for (const auto& [number, dialed] : {std::pair{"+1 (555) 123-4567", "15551234567"},
                                         {"0123456789*#=:!,/S$<>ABCD", "0123456789*#=:!,/S$<>ABCD"},
                                         {"sS abcdEe;.\xD9\xA1\xF0\x9D\x9F\x98", "S"},
                                         {"call me", ""},
                                         {"", ""}}) {
        const auto typed = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(number));
        EXPECT_EQ(CFStringToUTF8(Owned<CFStringRef>::Adopt(CopyDialingStringFromFaxNumber(typed))),
                  dialed);
    }
    const auto none = Owned<CFStringRef>::Adopt(CopyDialingStringFromFaxNumber(nullptr));
    EXPECT_EQ(CFStringGetLength(none), 0) << "a recipient without a number";
}

}  // namespace
}  // namespace kalmo::test
