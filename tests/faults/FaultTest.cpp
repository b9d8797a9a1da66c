// Every system function that the library calls fails, one call at a time. Whatever fails, the host
// survives, no call hangs, and the next job works normally.

#include "PublicLib/logging/LoggerComponent.h"
#include "PublicLib/text/Text.h"
#include "tests/faults/FailureTable.h"
#include "tests/job/WholeJob.h"
#include "tests/support/TestLimits.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <io.h>
#include <map>

namespace jsw {

namespace {

constexpr DWORD kPatience = 10000;       // milliseconds: no rules take so long
constexpr DWORD kPatienceInFault = 100;  // the rules may have failed

/// Functions called at least this often in a job with the log on are called by the log. The others
/// behave as with the log off.
constexpr std::uint32_t kCallsOfTheLog = 30;
constexpr std::uint32_t kFewLevels = kLogDetail | kLogModuleCall | kLogRules;

/// One per line, so that a failed comparison shows only the difference.
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
    /// Lets the calls 1, 1 + step, … of each function fail, each in its own job; limits functions
    /// that are called very often.
    /// @param fewest  skips functions that are called less often
    void failEachCall(std::uint32_t levels, std::uint32_t step, std::uint32_t most,
                      std::uint32_t fewest);

  private:
    std::vector<std::string> job(std::uint32_t levels) {
        prepare(levels);
        return wholeJob(kPatience);
    }
    void learnWhatIsExpected(std::uint32_t levels) {
        job(levels);  // objects that are created once and kept
        expected_ = job(levels);
    }
    /// A job in which something fails, and one after it.
    void failInOneJob(std::uint32_t levels, const std::string& what, test::ImportGate& gate,
                      const std::function<void()>& fail);

    std::vector<std::string> expected_;
    int faults_ = 0;
};

void FaultTest::failInOneJob(std::uint32_t levels, const std::string& what, test::ImportGate& gate,
                             const std::function<void()>& fail) {
    test::describeStep(what);
    test::allowSeconds(30);
    gate.reset();
    prepare(levels);
    fail();
    wholeJob(kPatienceInFault);
    faults_ += gate.hasFailed() ? 1 : 0;
    gate.reset();
    for (const char* module : {"scripted_catalog.dll", "scripted_rules.dll"}) {
        EXPECT_EQ(GetModuleHandleA(module), nullptr) << module << " after " << what;
    }
    EXPECT_EQ(asLines(job(levels)), asLines(expected_)) << "after " << what << " has failed";
    if (levels != 0) {
        ASSERT_EQ(_access(logPath().c_str(), 0), 0) << what << " has ended the log for good";
    }
}

void FaultTest::failEachCall(std::uint32_t levels, std::uint32_t step, std::uint32_t most,
                             std::uint32_t fewest) {
    learnWhatIsExpected(levels);
    const char* only = std::getenv("JSW_FAULT_ONLY");
    test::ImportGate gate(imports_);
    job(levels);
    std::map<std::string, std::uint32_t> callsOf;
    for (const auto& function : imports_.functions()) {
        callsOf[function.name] = gate.calls(function.name);
    }
    for (const auto& [name, calls] : callsOf) {
        const auto failure = test::systemFunction(name).failure;
        if (!failure || calls < fewest || (only != nullptr && name != only)) continue;
        const std::uint32_t stride = std::max(step, calls / most);
        for (std::uint32_t call = 1; call <= calls; call += stride) {
            const auto fail = [&, &failed = name] { gate.fail(failed, call, *failure); };
            failInOneJob(levels, concat("call ", call, " of ", name), gate, fail);
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

// First that with the log on: without its mutex, which is one of the failures of the other, the log
// ends for the rest of the process.
TEST_F(FaultTest, AnyFailureOfTheLog) {
    failEachCall(number("JSW_FAULT_LEVELS", kFewLevels), 1, number("JSW_FAULT_MOST_LOGGED", 2),
                 kCallsOfTheLog);
}

TEST_F(FaultTest, TheJobAfterAnyFailureIsServedAsEver) {
    failEachCall(0, number("JSW_FAULT_STEP", 7), number("JSW_FAULT_MOST", 40), 1);
}

TEST_F(FaultTest, NothingIsImportedThatTheOldestWindowsDoesNotHave) {
    for (const auto& import : imports_.functions()) {
        EXPECT_EQ(toLower(import.library), test::systemFunction(import.name).library)
            << import.name;
    }
}

}  // namespace jsw
