#include "tests/job/JobTest.h"
#include "tests/job/RecordedShell.h"
#include "tests/support/ImportTable.h"

#include <atomic>
#include <thread>

namespace jsw {

using namespace ::testing;

/// The older job window is in the printer driver's folder, under the host's name.
class PromptTest : public test::JobTest {
  protected:
    void SetUp() override {
        JobTest::SetUp();
        installLegacyModule();
    }

    static inline int statusCodes_ = 0;
    static void countStatus(std::uint32_t /*status*/) { ++statusCodes_; }

    static void* message(std::uintptr_t value) { return reinterpret_cast<void*>(value); }

    /// Lets another thread call the library; continues when that thread waits for its turn.
    static std::thread callMeanwhile(const std::function<void()>& call) {
        std::atomic<bool> waits{false};
        const auto wait = test::replaceImport<decltype(MsgWaitForMultipleObjectsEx)>(
            test::ImportTable(GetModuleHandleA("jsw.dll")), "MsgWaitForMultipleObjectsEx",
            [&](auto original, auto... arguments) {
                waits = true;
                return original(arguments...);
            });
        std::thread thread(call);
        EXPECT_TRUE(test::eventually([&] { return waits.load(); }));
        return thread;
    }
};

TEST_F(PromptTest, MessagesReachThePromptWhileItIsUpOnly) {
    startJob();
    api_.postDlgMsg(message(1));
    script_.onPrompt = [&] { EXPECT_EQ(api_.postDlgMsg(message(2)), 1U); };
    api_.displayPrompt(5, 3);
    api_.postDlgMsg(message(3));
    EXPECT_THAT(script_.legacy.calls(),
                ElementsAre("JSWInitEx(SimulatedPrinter)", "JSWDisplayPrompt(5,3)",
                            "JSWPostDlgMsg(2)", "JSWTerminate()"));
    EXPECT_TRUE(hasLine("Controller::jswDisplayPrompt: params: promptType=5totalPages=3"));
    EXPECT_EQ(GetModuleHandleA(legacyModule_.c_str()), nullptr);
}

TEST_F(PromptTest, AMessageFromAnotherThreadWaitsForTheEndOfThePrompt) {
    startJob();
    std::thread poster;
    script_.onPrompt = [&] {
        poster = callMeanwhile([&] { EXPECT_EQ(api_.postDlgMsg(message(7)), 1U); });
    };
    api_.displayPrompt(1, 1);
    poster.join();
    EXPECT_THAT(script_.legacy.calls(), ElementsAre("JSWInitEx(SimulatedPrinter)",
                                                    "JSWDisplayPrompt(1,1)", "JSWTerminate()"));
}

TEST_F(PromptTest, ACallThatWaitedUntilTheJobWasOverDoesNothing) {
    startJob();
    ASSERT_TRUE(waitForRules());
    std::thread late;
    script_.onPrompt = [&] {
        late = callMeanwhile([] { api_.updateInfo(1, 2, 3, 4, 5, nullptr); });
        api_.terminate();
    };
    api_.displayPrompt(1, 1);
    late.join();
    EXPECT_THAT(viewCalls("UpdateInfo"), IsEmpty());
}

/// The library's objects stay for the next job, which knows nothing of the one before.
TEST_F(PromptTest, EndingTheJobInsideAPromptKeepsTheSingletonsForTheNextJob) {
    addBillboard("TIP", {.file = "tip.bb", .type = "standard", .actions = {"jswnone:_^L1^_"}});
    addBillboard("LEVELS", {.file = "levels.bb", .type = "ink_status"});
    addBillboard("INK_STATUS", {.file = "ink.bb", .type = "ink_status"});
    const test::RecordedShell shell;
    script_.ruleResults = {"LEVELS", "TIP"};
    statusCodes_ = 0;
    startJob({.callback = countStatus});
    ASSERT_TRUE(waitForRules());
    script_.clickBillboard("LAUNCH_URL", 0);  // asks the simulated printer
    script_.onPrompt = [&] {
        api_.terminate();
        EXPECT_THAT(viewCalls("Uninitialize"), ElementsAre("Uninitialize()"));
        script_.view.clear();
        api_.updateInfo(1, 2, 3, 4, 5, nullptr);  // the job is over
        script_.reportEvent(9);
        script_.clickBillboard("CURRENT", 0);
        script_.saveValue("late", "value");
    };
    api_.displayPrompt(1, 1);
    script_.clickBillboard("CURRENT", 0);
    EXPECT_THAT(script_.view.calls(), IsEmpty());
    EXPECT_EQ(statusCodes_, 0);
    std::string late;
    EXPECT_FALSE(Settings().getValue(setting::kGuiKey, "late", late));
    EXPECT_FALSE(logContains("::destroy: destroying"));

    script_.ruleResults.clear();
    script_.rules.clear();
    script_.billboards["DEFAULT"].actions = {"jswnone:_^L1^_"};
    EXPECT_EQ(startJob({.friendlyName = "No such printer"}), 1);
    ASSERT_TRUE(waitForRules());
    script_.view.clear();
    for (const char* action : {"LAUNCH_URL", "CURRENT", "INK_STATUS"}) {
        script_.clickBillboard(action, 0);
    }
    EXPECT_THAT(viewCalls("DisplayBillboard"),
                ElementsAre("DisplayBillboard(default.bb,false,false)",
                            "DisplayBillboard(ink.bb,false,false)"));
    // All but the printer, which lives as long as the other objects.
    EXPECT_THAT(shell.calls.calls(), ElementsAre("open(jswnone:90)", "open(jswnone:90)"));
    endJob();
    const auto lines = logLines();
    for (const char* line :
         {"Controller::instance: instantiating Controller.",
          "Controller::destroy: destroying Controller.", "Printer::destroy: destroying Printer."}) {
        EXPECT_EQ(std::count(lines.begin(), lines.end(), line), 1) << line;
    }
}

TEST_F(PromptTest, APromptInsideAPromptSharesItsModule) {
    startJob();
    int depth = 0;
    script_.onPrompt = [&] {
        if (depth++ > 0) return;
        api_.displayPrompt(2, 0);
        EXPECT_NE(GetModuleHandleA(legacyModule_.c_str()), nullptr);
        api_.terminate();
        EXPECT_FALSE(logContains("destroying Controller."));
    };
    api_.displayPrompt(1, 0);
    EXPECT_THAT(script_.legacy.calls(),
                ElementsAre("JSWInitEx(SimulatedPrinter)", "JSWDisplayPrompt(1,0)",
                            "JSWInitEx(SimulatedPrinter)", "JSWDisplayPrompt(2,0)",
                            "JSWTerminate()", "JSWTerminate()"));
    api_.terminate();
    EXPECT_TRUE(logContains("destroying Controller."));
}

TEST_F(PromptTest, AJobWithoutTheXmlParserAsksAboutItsOwnPrinter) {
    startJob();
    EXPECT_EQ(startJobWithoutParser({.friendlyName = "Second printer"}), 0);
    api_.displayPrompt(1, 1);
    EXPECT_THAT(script_.legacy.calls(), ElementsAre("JSWInitEx(Second printer)",
                                                    "JSWDisplayPrompt(1,1)", "JSWTerminate()"));
}

TEST_F(PromptTest, AModuleThatFailsIsReportedAndLetGo) {
    startJob();
    script_.legacyStarts = false;
    api_.displayPrompt(1, 1);
    EXPECT_TRUE(hasLine("ERROR - unable to initialize old Jsw GUI."));
    EXPECT_THAT(script_.legacy.calls(), ElementsAre("JSWInitEx(SimulatedPrinter)"));

    DeleteFileA(legacyModule_.c_str());
    api_.displayPrompt(1, 1);
    EXPECT_TRUE(hasLine("jswInitEx called but GUI not loaded"));
    EXPECT_TRUE(hasLine("ERROR - BasicDll<Handler>::init() Unable to load DLL=" + legacyModule_));

    CopyFileA("scripted_view.dll", legacyModule_.c_str(), FALSE);  // a module of another kind
    api_.displayPrompt(1, 1);
    EXPECT_TRUE(hasLine("LegacyJswGui::jswInitEx: Could not get proc address for JSWInitEx"));
}

TEST_F(PromptTest, AJobStartedInsideAPromptIsNotOneThatWasThereBefore) {
    startJob();
    bool isGone = false;
    script_.onPrompt = [&] {
        endJob();
        startJob();
        DeleteFileA(logPath().c_str());
        endJob();
        isGone = hasLine("<<< SingletonMgr::~SingletonMgr: ");
    };
    api_.displayPrompt(1, 1);
    EXPECT_TRUE(isGone);
}

}  // namespace jsw
