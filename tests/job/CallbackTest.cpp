// What a driver does from inside its status callback, on whatever thread it is called.

#include "tests/job/JobTest.h"

#include <atomic>
#include <thread>

namespace jsw {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

std::function<void(std::uint32_t)> onStatus;
void forwardStatus(std::uint32_t status) {
    if (onStatus) onStatus(status);
}

}  // namespace

class CallbackTest : public test::JobTest {
  protected:
    void SetUp() override {
        JobTest::SetUp();
        addBillboard("TIP", {.file = "tip.bb", .type = "promotion"});
        onStatus = [](std::uint32_t) { api_.terminate(); };
    }
    void TearDown() override {
        onStatus = nullptr;
        JobTest::TearDown();
    }

    std::uint8_t start() { return startJob({.callback = forwardStatus}); }
    /// Lets the view report an event at the end of a call.
    void reportAt(const std::string& callStart) {
        script_.onViewCall = [this, callStart](const std::string& call) {
            if (call.starts_with(callStart)) script_.reportEvent(9);
        };
    }
    /// A plain job must be served fully afterwards.
    void expectNextJobWorks() {
        script_.onViewCall = nullptr;
        script_.onEvaluateRule = nullptr;
        script_.ruleResults = {"TIP"};
        script_.checkHistory = false;
        script_.view.clear();
        runJob();
        EXPECT_THAT(viewCalls("DisplayBillboard"),
                    Contains("DisplayBillboard(tip.bb,false,false)"));
        EXPECT_THAT(viewCalls("Uninitialize"), ElementsAre("Uninitialize()"));
    }
};

TEST_F(CallbackTest, EndingTheJobOnAThreadOfTheWindow) {
    start();
    waitForRules();
    std::thread([&] { script_.reportEvent(9); }).join();
    EXPECT_THAT(viewCalls("Uninitialize"), ElementsAre("Uninitialize()"));
    expectNextJobWorks();
}

TEST_F(CallbackTest, EndingTheJobOnTheRulesThreadWhichCannotWaitForItself) {
    script_.ruleResults = {"TIP"};
    reportAt("DisplayBillboard(tip.bb");
    start();
    EXPECT_TRUE(waitForRules());
    EXPECT_TRUE(test::eventually([&] { return viewCalls("Uninitialize").size() == 1; }));
    expectNextJobWorks();
}

TEST_F(CallbackTest, EndingTheJobWhileItStarts) {
    for (const char* call : {"DisplayBillboard(default.bb", "SetUpdateSoftware(", "ShowGui("}) {
        script_.view.clear();
        reportAt(call);
        EXPECT_EQ(start(), 1) << call;
        EXPECT_THAT(viewCalls("Uninitialize"), ElementsAre("Uninitialize()")) << call;
        api_.updateInfo(1, 2, 3, 0, 0, nullptr);
        EXPECT_THAT(viewCalls("UpdateInfo"), IsEmpty());
    }
    expectNextJobWorks();
}

TEST_F(CallbackTest, EndingTheJobWhileItEndsAlready) {
    for (const char* call : {"HideGui(", "Uninitialize("}) {
        start();
        script_.view.clear();
        reportAt(call);
        endJob();
        EXPECT_THAT(viewCalls("Uninitialize"), ElementsAre("Uninitialize()")) << call;
    }
    expectNextJobWorks();
}

/// The driver ends the job on its thread just when the rules thread is inside the callback.
TEST_F(CallbackTest, NoCallFromTheCallbackWaitsForTheThreadThatEndsTheJob) {
    std::atomic<bool> inside{false};
    onStatus = [&](std::uint32_t) {
        inside = true;
        Sleep(200);  // by now the other thread holds the lock and waits for this one
        api_.updateInfo(1, 2, 3, 0, 0, nullptr);
        api_.postDlgMsg(nullptr);
        api_.terminate();
        EXPECT_EQ(startJob({.jobName = "too early"}), 0);
    };
    script_.ruleResults = {"TIP"};
    reportAt("DisplayBillboard(tip.bb");
    start();
    ASSERT_TRUE(test::eventually([&] { return inside.load(); }));
    endJob();
    EXPECT_THAT(viewCalls("UpdateInfo"), IsEmpty());
    EXPECT_THAT(viewCalls("Uninitialize"), ElementsAre("Uninitialize()"));
    expectNextJobWorks();
}

TEST_F(CallbackTest, EventsReportedAtTheSameTimeAllReachTheDriver) {
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

TEST_F(CallbackTest, AnExceptionOfTheDriverIsCaught) {
    onStatus = [](std::uint32_t) { throw std::runtime_error("driver's own"); };
    start();
    script_.reportEvent(3);
    EXPECT_TRUE(hasLine("ERROR - jswCallback: driver's own"));
}

}  // namespace jsw
