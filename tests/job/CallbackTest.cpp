// A driver's calls from inside its status callback, on any thread.

#include "tests/job/CallbackTest.h"

#include "tests/support/ImportTable.h"

#include <process.h>

#include <atomic>
#include <thread>

namespace jsw::test {

using namespace ::testing;

TEST_F(CallbackTest, EndingTheJobOnAThreadOfTheWindow) {
    start();
    waitForRules();
    std::thread([&] { script_.reportEvent(9); }).join();
    expectEndSoon();
    expectNextJobWorks();
}

/// The rules thread must not wait for itself, nor do another thread's work.
TEST_F(CallbackTest, EndingTheJobOnTheRulesThread) {
    std::atomic<DWORD> rulesThread{0};
    std::atomic<DWORD> endThread{0};
    script_.ruleResults = {"TIP"};
    script_.onViewCall = [&](const std::string& call) {
        if (call.starts_with("Uninitialize(")) endThread = GetCurrentThreadId();
        if (!call.starts_with("DisplayBillboard(tip.bb")) return;
        rulesThread = GetCurrentThreadId();
        EXPECT_EQ(startJob({.jobName = "too early"}), 0);
        script_.reportEvent(9);
        api_.updateInfo(1, 2, 3, 0, 0, nullptr);  // the job is over for the driver
    };
    start();
    EXPECT_TRUE(test::eventually([&] { return endThread != 0; }));
    EXPECT_NE(endThread, rulesThread);
    EXPECT_NE(endThread, GetCurrentThreadId());
    EXPECT_THAT(viewCalls("UpdateInfo"), IsEmpty());
    EXPECT_TRUE(
        hasLine("ERROR - JSWInit is refused: it comes from the status callback while a "
                "billboard is being chosen."));
    expectNextJobWorks();
}

TEST_F(CallbackTest, AnEndWithoutAThreadOfItsOwnIsCarriedOutByTheNextCall) {
    const test::ImportTable imports(GetModuleHandleA("jsw.dll"));
    std::atomic<bool> isInside{false};
    onStatus = [&](std::uint32_t) {
        isInside = true;
        const auto threads = test::replaceImport<decltype(_beginthreadex)>(
            imports, "_beginthreadex", [](auto...) { return std::uintptr_t{0}; });
        api_.terminate();
    };
    script_.ruleResults = {"TIP"};
    reportAt("DisplayBillboard(tip.bb");
    start();
    EXPECT_TRUE(waitForRules());
    EXPECT_TRUE(isInside);
    EXPECT_FALSE(isEnded());
    EXPECT_TRUE(logContains("ERROR - no thread to end the job on, error="));
    start();
    EXPECT_TRUE(isEnded());
    endJob();
    script_.view.clear();
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

/// The driver ends the job on its thread while the rules thread is inside the callback.
TEST_F(CallbackTest, NoCallFromTheCallbackWaitsForTheThreadThatEndsTheJob) {
    std::atomic<bool> inside{false};
    onStatus = [&](std::uint32_t) {
        inside = true;
        // The other thread holds the lock and waits for this one.
        EXPECT_TRUE(test::eventually([] { return logContains("<<< Controller::jswTerminate: "); }));
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
    EXPECT_TRUE(
        hasLine("ERROR - JSWInit is refused: it comes from the status callback while "
                "another thread is inside the library."));
    expectNextJobWorks();
}

/// A window of this thread, to which the view sends a message during one of its calls.
class WindowTest : public CallbackTest {
  protected:
    void SetUp() override {
        CallbackTest::SetUp();
        window_ = CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                  nullptr);
        ASSERT_NE(window_, nullptr);
    }
    void TearDown() override {
        CallbackTest::TearDown();
        DestroyWindow(window_);
    }

    /// Makes the view's call wait for this thread, like SetWindowText of a window's title.
    void sendDuring(const std::string& callStart) {
        script_.onViewCall = [this, callStart](const std::string& call) {
            if (!call.starts_with(callStart)) return;
            sending_ = true;
            SendMessageA(window_, WM_NULL, 0, 0);
            sending_ = false;
        };
    }
    void waitForSender() {
        ASSERT_TRUE(test::eventually([&] { return sending_.load(); }));
    }
    /// A window thread's message loop.
    template <class Done>
    bool serveUntil(const Done& done) {
        return test::eventually([&] {
            MSG message;
            PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);
            return done();
        });
    }
    HWND window_ = nullptr;
    std::atomic<bool> sending_{false};
};

TEST_F(WindowTest, TheUserCancelsWhileTheDriversThreadIsInTheView) {
    start();
    ASSERT_TRUE(waitForRules());
    sendDuring("UpdateInfo(");
    std::thread driver([] { api_.updateInfo(1, 2, 3, 0, 0, nullptr); });
    waitForSender();
    onStatus = [](std::uint32_t) {
        api_.displayPrompt(1, 1);
        api_.terminate();
    };
    script_.reportEvent(9);  // ends the job when the driver's thread has returned
    EXPECT_FALSE(isEnded());
    EXPECT_TRUE(
        hasLine("ERROR - JSWDisplayPrompt is refused: it comes from the status callback "
                "while another thread is inside the library."));
    api_.updateInfo(9, 9, 9, 0, 0, nullptr);  // for a job that is over
    EXPECT_TRUE(serveUntil([&] { return isEnded(); }));
    driver.join();
    EXPECT_EQ(viewCalls("UpdateInfo").size(), 1U);
    expectNextJobWorks();
}

TEST_F(WindowTest, TheUserCancelsWhileTheRulesThreadIsInTheView) {
    onStatus = [this](std::uint32_t) {
        api_.terminate();
        EXPECT_EQ(startJob({.jobName = "too early"}), 0);
    };
    script_.ruleResults = {"TIP"};
    sendDuring("DisplayBillboard(tip.bb");
    start();
    waitForSender();
    script_.reportEvent(9);  // ends the job when the rules thread has returned
    EXPECT_FALSE(isEnded());
    EXPECT_TRUE(serveUntil([&] { return isEnded(); }));
    expectNextJobWorks();
}

TEST_F(WindowTest, AnOrdinaryCallServesTheWindowsOfItsThreadWhileItWaits) {
    script_.ruleResults = {"TIP"};
    sendDuring("DisplayBillboard(tip.bb");
    start();
    waitForSender();
    PostMessageA(window_, WM_APP, 0, 0);  // for the thread's message loop
    endJob();                             // waits for the rules thread
    EXPECT_TRUE(isEnded());
    MSG message;
    EXPECT_TRUE(PeekMessageA(&message, window_, WM_APP, WM_APP, PM_REMOVE));

    script_.ruleResults.clear();
    script_.rules.clear();
    sendDuring("UpdateInfo(1,");
    start();
    ASSERT_TRUE(waitForRules());
    std::thread driver([] { api_.updateInfo(1, 2, 3, 0, 0, nullptr); });
    waitForSender();
    api_.updateInfo(2, 2, 3, 0, 0, nullptr);  // waits for the driver's thread
    EXPECT_THAT(viewCalls("UpdateInfo"), ElementsAre("UpdateInfo(1,2,3,0)", "UpdateInfo(2,2,3,0)"));
    driver.join();
}

TEST_F(CallbackTest, EndingTheJobWhileAPromptIsUpOnAnotherThread) {
    installLegacyModule();
    start();
    ASSERT_TRUE(waitForRules());
    std::atomic<bool> isUp{false};
    std::atomic<bool> isBack{false};
    script_.onPrompt = [&] {
        isUp = true;
        EXPECT_TRUE(test::eventually([&] { return isBack.load(); }));
        EXPECT_THAT(viewCalls("Uninitialize"), IsEmpty());
    };
    std::thread driver([] { api_.displayPrompt(1, 1); });
    ASSERT_TRUE(test::eventually([&] { return isUp.load(); }));
    script_.reportEvent(9);
    isBack = true;
    driver.join();
    EXPECT_TRUE(test::eventually([] { return logContains("destroying Controller."); }));
    EXPECT_THAT(viewCalls("Uninitialize"), ElementsAre("Uninitialize()"));
    expectNextJobWorks();
}

TEST_F(CallbackTest, AnEndAskedForDuringAStartThatRaisesIsNotLost) {
    Settings().setValue(setting::kLoggerKey, "startLog", 0);
    std::atomic<bool> failNext{false};
    const test::ImportTable imports(GetModuleHandleA("jsw.dll"));
    const auto memory = test::replaceImport<void*(std::size_t)>(
        imports, "malloc",
        [&](std::size_t size) { return failNext.exchange(false) ? nullptr : std::malloc(size); });
    script_.onViewCall = [&](const std::string& call) {
        if (!call.starts_with("ShowGui(")) return;
        script_.reportEvent(9);
        failNext = true;
    };
    EXPECT_EQ(start(), 0);
    EXPECT_FALSE(failNext);
    EXPECT_THAT(viewCalls("Uninitialize"), ElementsAre("Uninitialize()"));  // nothing stays open
    EXPECT_EQ(GetModuleHandleA("scripted_catalog.dll"), nullptr);  // the job's objects are gone
    script_.view.clear();
    expectNextJobWorks();
}

}  // namespace jsw::test
