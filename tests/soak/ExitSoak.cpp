// The host exits in the middle of a job.

#include "PublicLib/win/SystemFolders.h"
#include "tests/job/WholeJob.h"
#include "tests/soak/Soak.h"
#include "tests/support/TestLimits.h"

#include <process.h>

#include <cstdlib>
#include <thread>

namespace jsw {

namespace {

constexpr int kExitCode = 7;

int moment() {
    const char* milliseconds = std::getenv("JSW_SOAK_MOMENT");
    return milliseconds != nullptr ? std::atoi(milliseconds) : 0;
}

}  // namespace

/// Run as a separate process for each exit.
class DISABLED_EndingHost : public test::WholeJobTest {
  protected:
    void SetUp() override {
        WholeJobTest::SetUp();
        prepare(0);
        script_.rulesNeverEnd = true;
        script_.onEvaluateRule = [] { Sleep(1); };
    }
};

TEST_F(DISABLED_EndingHost, ReturnsFromMain) {
    startJob();
    Sleep(static_cast<DWORD>(moment()));
    std::exit(kExitCode);
}

TEST_F(DISABLED_EndingHost, ExitsOnAnotherThread) {
    std::thread([] {
        Sleep(static_cast<DWORD>(moment()));
        ExitProcess(kExitCode);
    }).detach();
    for (;;) {
        startJob();
        api_.updateInfo(1, 2, 3, 4, 5, nullptr);
        endJob();
    }
}

TEST(ExitSoak, AProcessEndsAtAnyMomentOfAJob) {
    const int ends = test::soakAmount(60);
    const std::string program = moduleFileName(nullptr);
    const std::string quoted = "\"" + program + "\"";
    int faults = 0;
    for (int i = 0; i < ends; ++i) {
        test::allowSeconds(60);
        SetEnvironmentVariableA("JSW_SOAK_MOMENT", std::to_string(i / 2 * 3).c_str());
        const char* filter = i % 2 == 0 ? "--gtest_filter=*EndingHost.ReturnsFromMain"
                                        : "--gtest_filter=*EndingHost.ExitsOnAnotherThread";
        const auto code = _spawnl(_P_WAIT, program.c_str(), quoted.c_str(), filter,
                                  "--gtest_also_run_disabled_tests", "--gtest_brief=1", nullptr);
        if (code != kExitCode) ++faults;
    }
    test::report(ends, " processes ended in the middle of a job: ", faults,
                 " hung, crashed or ended otherwise; expected: 0");
    EXPECT_EQ(faults, 0);
}

}  // namespace jsw
