#include "tests/support/TestLimits.h"

#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace jsw::test {

namespace {

constexpr DWORD kLookEvery = 100;  // milliseconds
constexpr std::uint64_t kNever = ~std::uint64_t{0};

std::atomic<std::uint64_t> deadline{kNever};  // as GetTickCount64() counts
char stepText[200];                           // without a lock, which a hanging thread may hold

unsigned secondsOfATest() {
    const char* seconds = std::getenv("JSW_TEST_SECONDS");
    return seconds != nullptr ? static_cast<unsigned>(std::atoi(seconds)) : 30;
}

/// Without the C run-time library's locks, which a hanging thread may hold.
void endProgram(const std::string& why) {
    const auto* const test = ::testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = test ? concat(test->test_suite_name(), ".", test->name()) : "no test";
    const std::string text = concat("\nerror: ", name, " (", stepText, ") ", why, "\n");
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), text.data(), static_cast<DWORD>(text.size()),
              &written, nullptr);
    TerminateProcess(GetCurrentProcess(), 3);
}

class LimitListener : public ::testing::EmptyTestEventListener {
  public:
    void OnTestStart(const ::testing::TestInfo& /*info*/) override {
        describeStep("");
        std::fflush(stdout);
        allowSeconds(secondsOfATest());
    }
    void OnTestEnd(const ::testing::TestInfo& /*info*/) override { deadline = kNever; }
};

/// Runs from the start: no thread can start while a test hangs in the loader.
DWORD WINAPI watch(void* /*unused*/) {
    while (GetTickCount64() < deadline) Sleep(kLookEvery);
    endProgram("has not ended in its time");
    return 0;
}

LONG WINAPI reportFault(EXCEPTION_POINTERS* exception) {
    char code[16];
    std::snprintf(code, sizeof(code), "0x%lx", exception->ExceptionRecord->ExceptionCode);
    endProgram(concat("ended with exception ", code));
    return EXCEPTION_EXECUTE_HANDLER;
}

void reportAbort(int /*signal*/) {
    endProgram("was aborted");
}

}  // namespace

void installTestLimits() {
    const KernelHandle watcher(CreateThread(nullptr, 0, &watch, nullptr, 0, nullptr));
    SetUnhandledExceptionFilter(&reportFault);
    std::signal(SIGABRT, &reportAbort);
    ::testing::UnitTest::GetInstance()->listeners().Append(new LimitListener);
}

void allowSeconds(unsigned seconds) {
    deadline = GetTickCount64() + std::uint64_t{seconds} * 1000;
}

void describeStep(const std::string& step) {
    std::snprintf(stepText, sizeof(stepText), "%s", step.c_str());
}

}  // namespace jsw::test
