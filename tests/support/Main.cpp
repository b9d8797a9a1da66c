#include "tests/support/TestLimits.h"

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleMock(&argc, argv);
    jsw::test::installTestLimits();
    return RUN_ALL_TESTS();
}
