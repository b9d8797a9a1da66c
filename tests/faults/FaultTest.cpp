// Every function that the library asks of the system fails, one call at a time. Whatever fails, the
// host lives, no call hangs, and the job after it is served as if nothing had been.

#include "PublicLib/logging/LoggerComponent.h"
#include "PublicLib/text/Text.h"
#include "tests/faults/FailureTable.h"
#include "tests/job/WholeJob.h"
#include "tests/support/TestLimits.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace jsw {

namespace {

constexpr DWORD kPatience = 10000;       // milliseconds: no rules take so long
constexpr DWORD kPatienceInFault = 300;  // the rules may be what has failed

/// Called at least so often in a job with the log on: by the log itself. The others behave as with
/// the log off.
constexpr std::uint32_t kCallsOfTheLog = 30;
constexpr std::uint32_t kFewLevels = kLogDetail | kLogModuleCall | kLogRules;

/// One below the other: so a failed comparison shows the difference alone.
std::string asLines(const std::vector<std::string>& calls) {
    std::string lines;
    for (const std::string& call : calls) lines += call + '\n';
    return lines;
}

/// A number from the environment. The whole is run with a step of 1 and without the other limits.
std::uint32_t number(const char* variable, std::uint32_t otherwise) {
    const char* text = std::getenv(variable);
    return text != nullptr ? static_cast<std::uint32_t>(std::strtoul(text, nullptr, 0)) : otherwise;
}

}  // namespace

class FaultTest : public test::WholeJobTest {
  protected:
    /// Lets the calls 1, 1 + step, … of each function fail, each in a job of its own; of functions
    /// that are called very often at most so many.
    /// @param fewest  functions that are called less often are left out
    void failEachCall(std::uint32_t levels, std::uint32_t step, std::uint32_t most,
                      std::uint32_t fewest);

  private:
    std::vector<std::string> job(std::uint32_t levels) {
        prepare(levels);
        return wholeJob(kPatience);
    }
    void failOneCall(std::uint32_t levels, const std::string& function, std::uint32_t call,
                     const test::Failure& failure, test::ImportGate& gate);

    std::vector<std::string> expected_;
    int faults_ = 0;
};

void FaultTest::failOneCall(std::uint32_t levels, const std::string& function, std::uint32_t call,
                            const test::Failure& failure, test::ImportGate& gate) {
    test::describeStep(concat("call ", call, " of ", function));
    test::allowSeconds(60);
    gate.reset();
    prepare(levels);
    gate.fail(function, call, failure);
    wholeJob(kPatienceInFault);
    faults_ += gate.hasFailed() ? 1 : 0;
    gate.reset();
    EXPECT_EQ(asLines(job(levels)), asLines(expected_))
        << "after call " << call << " of " << function << " has failed";
}

void FaultTest::failEachCall(std::uint32_t levels, std::uint32_t step, std::uint32_t most,
                             std::uint32_t fewest) {
    job(levels);  // what is made once and kept
    expected_ = job(levels);
    const char* only = std::getenv("JSW_FAULT_ONLY");
    test::ImportGate gate(imports_);
    for (const auto& function : imports_.functions()) {
        const auto failure = test::failureOf(function.name);
        if (!failure || (only != nullptr && function.name != only)) continue;
        gate.reset();
        job(levels);
        const std::uint32_t calls = gate.calls(function.name);
        if (calls < fewest) continue;
        const std::uint32_t stride = std::max(step, calls / most);
        for (std::uint32_t call = 1; call <= calls; call += stride) {
            failOneCall(levels, function.name, call, *failure, gate);
        }
    }
    if (only == nullptr) {
        EXPECT_GT(faults_, 10);
    }
    std::printf(
        "%d calls failed, each in a job of its own, log levels 0x%lx: every job after them "
        "as ever; expected: no other\n",
        faults_, static_cast<unsigned long>(levels));
}

TEST_F(FaultTest, TheJobAfterAnyFailureIsServedAsEver) {
    withoutStarting(
        [this] { failEachCall(0, number("JSW_FAULT_STEP", 7), number("JSW_FAULT_MOST", 40), 1); });
}

TEST_F(FaultTest, TheSameWithTheLogOn) {
    withoutStarting([this] {
        failEachCall(number("JSW_FAULT_LEVELS", kFewLevels), 1, number("JSW_FAULT_MOST_LOGGED", 2),
                     kCallsOfTheLog);
    });
}

}  // namespace jsw
