#include "shell/base/texts.h"

#include <stdexcept>

#include "kalmo/statuses.h"
#include "shell/base/panel_interface.h"
#include "support/test.h"

namespace kalmo::test {
namespace {

TEST(Texts, MissingTextIsShownAndReported) {
    const auto bundle = Owned<CFBundleRef>::Adopt(
        OpenBundle(WriteBundle(MakeFolder("bundle"), "Texts", "com.example.texts", {})));
    testing::internal::CaptureStderr();
    EXPECT_EQ(CFStringToUTF8(CopyText(bundle, CFSTR("Maybe"), CFSTR("LANFax"))), kStringNotFound);
    EXPECT_EQ(CFStringToUTF8(CopyText(nullptr, CFSTR("Yes"))), kStringNotFound);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "No text in table \"LANFax\" for key \"Maybe\"\n"
              "No text in table \"Localizable\" for key \"Yes\"\n");
}

TEST(PanelInterface, ExceptionsBecomeTheStatus) {
    EXPECT_EQ(WithoutExceptions(kPMInvalidPDEContext,
                                []() -> OSStatus { throw std::runtime_error("lost"); }),
              kPMInvalidPDEContext);
    EXPECT_EQ(WithoutExceptions(paramErr, []() -> OSStatus { throw 1; }), paramErr);
}

}  // namespace
}  // namespace kalmo::test
