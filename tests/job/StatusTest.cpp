// What the window reports, on any thread, and what of it reaches the driver.

#include "tests/job/CallbackTest.h"
#include "tests/support/ImportTable.h"

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

namespace jsw::test {

using namespace ::testing;

class StatusTest : public CallbackTest {};

/// Including what the window reports while it closes, whoever closes it.
TEST_F(StatusTest, EveryStatusButThatOfAClosedWindowReachesTheDriver) {
    test::CallRecord statuses;
    onStatus = [&](std::uint32_t status) {
        statuses.add(std::to_string(status));
        if (status == 9) api_.terminate();
    };
    // Ended at once, by the starting thread, and while the rules thread works.
    for (const char* call : {"UpdateInfo(", "ShowGui(", "DisplayBillboard(tip.bb"}) {
        statuses.clear();
        script_.view.clear();
        script_.ruleResults = {"TIP"};
        script_.checkHistory = false;
        script_.onViewCall = [&](const std::string& made) {
            if (made.starts_with(call)) script_.reportEvent(9);
            if (made.starts_with("HideGui(")) script_.reportEvent(2);
            if (made.starts_with("HideGui(")) script_.reportEvent(3);
            if (made.starts_with("Uninitialize(")) script_.reportEvent(4);
        };
        start();
        if (statuses.calls().empty()) api_.updateInfo(1, 2, 3, 0, 0, nullptr);
        EXPECT_TRUE(test::eventually([&] { return statuses.calls().size() == 3; })) << call;
        EXPECT_THAT(statuses.calls(), ElementsAre("9", "3", "4")) << call;
        endJob();  // waits for the end
    }
    expectNextJobWorks();
}

TEST_F(StatusTest, AClickReachesTheWindowUntilItIsUninitialized) {
    start();
    ASSERT_TRUE(waitForRules());
    script_.view.clear();
    script_.onViewCall = [&](const std::string& call) {
        if (call.starts_with("HideGui(") || call.starts_with("Uninitialize(")) {
            script_.clickBillboard("CURRENT", 0);
        }
    };
    endJob();
    EXPECT_THAT(
        script_.view.calls(),
        ElementsAre("HideGui()", "DisplayBillboard(default.bb,false,false)", "Uninitialize()"));
}

/// A thread of the window reports an event while its job ends and the next one starts.
TEST_F(StatusTest, AnEventThatComesTooLateForItsJobReachesNobody) {
    std::atomic<int> statuses{0};
    onStatus = [&](std::uint32_t) { ++statuses; };
    std::atomic<bool> hasArrived{false};
    std::atomic<bool> mayGoOn{false};
    std::atomic<DWORD> windowThread{0};
    const test::ImportTable imports(GetModuleHandleA("jsw.dll"));
    const auto clock = test::replaceImport<decltype(GetTickCount)>(imports, "GetTickCount", [&] {
        DWORD self = GetCurrentThreadId();
        if (windowThread.compare_exchange_strong(self, 0)) {  // asks for its first line in the log
            hasArrived = true;
            EXPECT_TRUE(test::eventually([&] { return mayGoOn.load(); }));
        }
        return GetTickCount();
    });
    start();
    std::thread window([&] {
        windowThread = GetCurrentThreadId();
        script_.reportEvent(3);
    });
    EXPECT_TRUE(test::eventually([&] { return hasArrived.load(); }));
    endJob();
    start();
    mayGoOn = true;
    window.join();
    EXPECT_EQ(statuses, 0);
    endJob();
}

TEST_F(StatusTest, UnknownCodesArePassedOnAndLogged) {
    std::vector<std::uint32_t> codes;
    onStatus = [&](std::uint32_t status) { codes.push_back(status); };
    start();
    for (const std::int32_t event : {2, 3, 9, 77, -1}) script_.reportEvent(event);
    EXPECT_THAT(codes, ElementsAre(3U, 9U, 77U, 0xFFFFFFFFU));
    EXPECT_TRUE(hasLine("Controller::update: JSW GUI closed"));
    EXPECT_TRUE(hasLine("Controller::update: unknown status(=77) in callback"));
    startJob({.callback = nullptr});
    script_.reportEvent(3);
    EXPECT_EQ(codes.size(), 4U);
}

TEST_F(StatusTest, NothingIsPassedOnAfterTheJob) {
    onStatus = [](std::uint32_t) { ADD_FAILURE(); };
    start();
    waitForRules();
    endJob();
    DeleteFileA(logPath().c_str());
    script_.reportEvent(9);
    script_.clickBillboard("NEXT", 0);
    script_.saveAppearance("Show Process Window", 0);
    script_.saveValue("late", "value");
    script_.saveUpdateSoftware(1);
    EXPECT_THAT(logLines(), IsEmpty());
    std::string value;
    EXPECT_FALSE(Settings().getValue(setting::kGuiKey, "late", value));
}

TEST_F(StatusTest, EventsReportedAtTheSameTimeAllReachTheDriver) {
    std::atomic<int> cancelled{0};
    std::atomic<int> closed{0};
    onStatus = [&](std::uint32_t status) { ++(status == 9 ? cancelled : closed); };
    start();
    std::vector<std::thread> threads;
    for (const std::int32_t event : {9, 2, 3}) {
        threads.emplace_back([&, event] {
            for (int i = 0; i < 100; ++i) script_.reportEvent(event);
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(cancelled, 100);
    EXPECT_EQ(closed, 100);
}

TEST_F(StatusTest, AnExceptionOfTheDriverIsCaught) {
    onStatus = [](std::uint32_t) { throw std::runtime_error("driver's own"); };
    start();
    script_.reportEvent(3);
    EXPECT_TRUE(hasLine("ERROR - jswCallback: driver's own"));
    onStatus = [](std::uint32_t status) { throw status; };
    script_.reportEvent(3);
    EXPECT_TRUE(hasLine("ERROR - jswCallback: unknown exception"));
}

}  // namespace jsw::test
