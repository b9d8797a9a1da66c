// A host that loads and frees the library for each job, in a separate process.

#include "PublicLib/win/EntryPoint.h"
#include "tests/job/JobTest.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ProcessState.h"

#include <atomic>
#include <thread>

namespace jsw {

namespace {

constexpr int kCycles = 30;

/// The host's use of the library between loading and freeing it.
using Use = std::function<void(HMODULE)>;

void call(HMODULE library, const char* name) {
    findEntryPoint<void()>(library, name)();
}

void loadUseAndFree(const Use& use) {
    const ModuleHandle library(LoadLibraryA("jsw.dll"));
    use(library.get());
}

std::uint8_t start(HMODULE library, JswStatusCallback callback) {
    return findEntryPoint<decltype(JSWInit)>(library, "JSWInit")(
        "SimulatedPrinter", "report.pdf", 0, 1, 1, 1, 1, nullptr, 0, 0, callback);
}

/// 0 if every cycle after the first ones has left nothing behind. The system's occasional
/// allocations show in one round, the library's leaks in every one.
int cycle(const Use& use) {
    for (int i = 0; i < 5; ++i) loadUseAndFree(use);
    for (int round = 0; round < 3; ++round) {
        const test::ProcessState before = test::processState();
        for (int i = 0; i < kCycles; ++i) loadUseAndFree(use);
        const test::ProcessState after = test::processState();
        if (after.freeTlsIndexes != before.freeTlsIndexes) return 1;
        if (after.nextHandle != before.nextHandle) return 3;
        if (GetModuleHandleA("jsw.dll") == nullptr) return 4;  // pins itself
        if (after.heapBytes <= before.heapBytes + 4 * kCycles) return 0;
    }
    return 2;
}

/// Follows the script of the test; the registry is that of the test program.
struct Host {
    explicit Host(const std::string& registry) {
        test::PrivateRegistry::join(registry);
        script.offer();
    }
    test::Script script;
};

const test::ChildRole unused("unused", [](const std::string& registry) {
    const Host host(registry);
    return cycle([](HMODULE library) {
        call(library, "JSWTerminate");
        call(library, "JSWGetWindowHwnd");
    });
});

const test::ChildRole used("used", [](const std::string& registry) {
    Host host(registry);
    return cycle([&](HMODULE library) {
        start(library, nullptr);
        call(library, "JSWTerminate");
        for (auto* record : {&host.script.view, &host.script.catalog, &host.script.rules}) {
            record->clear();
        }
    });
});

std::atomic<int> callbacks{0};  // begun, and ended
std::atomic<bool> mayReturn{false};

/// The host ends the job and frees the library while the window is inside the driver's callback.
const test::ChildRole freed("freed", [](const std::string& registry) {
    Host host(registry);
    std::thread window;
    loadUseAndFree([&](HMODULE library) {
        start(library, [](std::uint32_t) {
            ++callbacks;
            test::eventually([] { return mayReturn.load(); });
        });
        window = std::thread([&] {
            host.script.reportEvent(9);
            ++callbacks;
        });
        test::eventually([] { return callbacks == 1; });
        call(library, "JSWTerminate");
    });
    mayReturn = true;
    window.join();
    return callbacks == 2 && GetModuleHandleA("jsw.dll") != nullptr ? 0 : 1;
});

}  // namespace

class UnloadTest : public test::JobTest {
  protected:
    std::uint32_t run(const char* role) {
        Settings().setValue(setting::kLoggerKey, "startLog", 0);
        return test::ChildProcess(role, registryPath()).wait(60000);
    }
};

TEST_F(UnloadTest, LoadingAndFreeingLeavesNothingBehindWithAndWithoutJobs) {
    EXPECT_EQ(run("unused"), 0U);
    EXPECT_EQ(run("used"), 0U);
}

TEST_F(UnloadTest, CodeThatIsStillRunningStaysWhereItIs) {
    EXPECT_EQ(run("freed"), 0U);
}

}  // namespace jsw
