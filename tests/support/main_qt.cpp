// The same with an offscreen application around the tests.
#include <gtest/gtest.h>

#include <QApplication>

#include "support/private_home.h"

/// Qt's PDF reader (6.4) forgets what it held of a file that it could not open. What pango holds of
/// fontconfig up to the end is found by offsets instead of addresses, which a leak check cannot
/// see.
extern "C" [[gnu::visibility("default")]] const char* __lsan_default_suppressions() {
    return "leak:libQt6Pdf\nleak:libfontconfig\n";
}

int main(int argc, char** argv) {
    kalmo::test::UsePrivateHome();
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
