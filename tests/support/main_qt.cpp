// The same with an offscreen application around the tests.
#include <gtest/gtest.h>

#include <QApplication>

#include "support/private_home.h"

int main(int argc, char** argv) {
    kalmo::test::UsePrivateHome();
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
