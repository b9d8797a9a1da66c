// A test that never ends or ends the program must be found by its name: nobody looks for it in the
// silence of a whole program that has run out of time.

#include "PublicLib/win/SystemFolders.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>
#include <string>

namespace jsw {

using ::testing::AllOf;
using ::testing::HasSubstr;

namespace {

/// Runs one of the tests below by this program, with a second of time; answers what it said.
std::string outputOf(const std::string& test) {
    SetEnvironmentVariableA("JSW_TEST_SECONDS", "1");
    const std::string command = "\"\"" + moduleFileName(nullptr) +
                                "\" --gtest_also_run_disabled_tests --gtest_filter=" + test +
                                " 2>&1\"";
    std::FILE* pipe = _popen(command.c_str(), "r");
    SetEnvironmentVariableA("JSW_TEST_SECONDS", nullptr);
    std::string output;
    char part[256];
    while (std::fgets(part, sizeof(part), pipe) != nullptr) output += part;
    EXPECT_NE(_pclose(pipe), 0);
    return output;
}

}  // namespace

TEST(DISABLED_EndingTest, Hangs) {
    Sleep(INFINITE);
}

TEST(DISABLED_EndingTest, Faults) {
    volatile int* nowhere = nullptr;
    *nowhere = 1;
}

TEST(DISABLED_EndingTest, Aborts) {
    std::abort();
}

TEST(TestLimitsTest, ATestThatEndsTheProgramIsNamedWithItsStack) {
    EXPECT_THAT(outputOf("DISABLED_EndingTest.Hangs"),
                AllOf(HasSubstr("error: DISABLED_EndingTest.Hangs has not ended after 1 s"),
                      HasSubstr("kernel32.dll+0x")));
    EXPECT_THAT(
        outputOf("DISABLED_EndingTest.Faults"),
        AllOf(HasSubstr("error: DISABLED_EndingTest.Faults ended with exception 0xc0000005"),
              HasSubstr("qltest-foundation.exe+0x")));
    EXPECT_THAT(outputOf("DISABLED_EndingTest.Aborts"),
                HasSubstr("error: DISABLED_EndingTest.Aborts was aborted"));
}

}  // namespace jsw
