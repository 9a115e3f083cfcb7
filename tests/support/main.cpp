// The tests' main: a private home first, then everything.
#include <gtest/gtest.h>

#include "support/private_home.h"

int main(int argc, char** argv) {
    kalmo::test::UsePrivateHome();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
