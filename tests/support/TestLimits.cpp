#include "tests/support/TestLimits.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "tests/support/ThreadStacks.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <mutex>

namespace jsw::test {

namespace {

constexpr unsigned kExitCode = 3;
constexpr DWORD kReportTime = 10000;  // milliseconds
constexpr DWORD kLookEvery = 100;     // milliseconds
constexpr std::uint64_t kNever = ~std::uint64_t{0};

std::atomic<std::uint64_t> deadline{kNever};  // as GetTickCount64() counts
std::atomic<unsigned> limit{30};              // seconds, of the running test
std::mutex textLock;
std::string testName;
std::string stepText;

std::string runningTest() {
    const std::lock_guard lock(textLock);
    return stepText.empty() ? testName : concat(testName, " (", stepText, ")");
}

unsigned defaultLimit() {
    const char* seconds = std::getenv("JSW_TEST_SECONDS");
    return seconds != nullptr ? static_cast<unsigned>(std::atoi(seconds)) : 30;
}

class LimitListener : public ::testing::EmptyTestEventListener {
  public:
    void OnTestStart(const ::testing::TestInfo& info) override {
        {
            const std::lock_guard lock(textLock);
            testName = concat(info.test_suite_name(), ".", info.name());
            stepText.clear();
        }
        allowSeconds(defaultLimit());
    }
    void OnTestEnd(const ::testing::TestInfo& /*info*/) override { deadline = kNever; }
};

/// Made ready beforehand: when a test hangs in the loader no thread can start any more.
DWORD WINAPI reportHang(void* hangs) {
    if (WaitForSingleObject(hangs, INFINITE) != WAIT_OBJECT_0) return 1;
    writeError(concat("\nerror: ", runningTest(), " has not ended after ", limit.load(), " s\n"));
    writeOtherStacks();
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), kExitCode);
    return 0;
}

DWORD WINAPI watch(void* hangs) {
    while (GetTickCount64() < deadline) Sleep(kLookEvery);
    SetEvent(hangs);
    Sleep(kReportTime);  // a report that does not end ends here
    TerminateProcess(GetCurrentProcess(), kExitCode);
    return 0;
}

LONG WINAPI reportFault(EXCEPTION_POINTERS* exception) {
    writeError(concat("\nerror: ", runningTest(), " ended with exception ",
                      hexText(exception->ExceptionRecord->ExceptionCode), "\n"));
    writeStack(*exception->ContextRecord);
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), kExitCode);
    return EXCEPTION_EXECUTE_HANDLER;
}

void reportAbort(int /*signal*/) {
    writeError(concat("\nerror: ", runningTest(), " was aborted\n"));
    CONTEXT context{};
    RtlCaptureContext(&context);
    writeStack(context);
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), kExitCode);
}

}  // namespace

void installTestLimits() {
    // Not closed when the program ends: the threads look at it to their last moment.
    static NeverDestroyed<KernelHandle> event(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    const HANDLE hangs = event->get();
    const KernelHandle reporter(CreateThread(nullptr, 0, &reportHang, hangs, 0, nullptr));
    const KernelHandle watcher(CreateThread(nullptr, 0, &watch, hangs, 0, nullptr));
    SetUnhandledExceptionFilter(&reportFault);
    std::signal(SIGABRT, &reportAbort);
    ::testing::UnitTest::GetInstance()->listeners().Append(new LimitListener);
}

void allowSeconds(unsigned seconds) {
    limit = seconds;
    deadline = GetTickCount64() + std::uint64_t{seconds} * 1000;
}

void describeStep(const std::string& step) {
    const std::lock_guard lock(textLock);
    stepText = step;
}

}  // namespace jsw::test
