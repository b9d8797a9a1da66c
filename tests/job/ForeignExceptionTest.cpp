// Exceptions of modules from another compiler, and crashes.

#include "PublicLib/win/Handles.h"
#include "tests/job/JobTest.h"
#include "tests/job/RecordedShell.h"
#include "tests/support/Raise.h"

#include <functional>

namespace jsw {

using namespace ::testing;

namespace {

std::function<void()> inCallback;
void callDriver(std::uint32_t /*status*/) {
    if (inCallback) inCallback();
}

}  // namespace

class ForeignExceptionTest : public test::JobTest {
  protected:
    void SetUp() override {
        JobTest::SetUp();
        installLegacyModule();
    }
    void TearDown() override {
        inCallback = nullptr;
        JobTest::TearDown();
    }

    void misbehaveInView(const std::string& callStart, const std::function<void()>& act) {
        script_.onViewCall = [=](const std::string& call) {
            if (call.starts_with(callStart)) act();
        };
    }

    /// The log's lines about structured exceptions.
    static std::vector<std::string> faultLines() {
        std::vector<std::string> lines = logLines();
        std::erase_if(lines, [](const std::string& line) {
            return line.find("raised exception 0x") == std::string::npos;
        });
        return lines;
    }
};

TEST_F(ForeignExceptionTest, ACppExceptionOfAnotherCompilerIsContained) {
    misbehaveInView("ShowGui(", test::raiseForeignException);
    script_.onCatalogCall = [](const std::string& call) {
        if (call == "GetBillboardType") test::raiseForeignException();
    };
    script_.onEvaluateRule = test::raiseForeignException;
    script_.onPrompt = test::raiseForeignException;
    inCallback = test::raiseForeignException;
    addBillboard("TIP", {.file = "tip.bb", .type = "promotion"});
    script_.ruleResults = {"TIP", "TIP"};
    EXPECT_EQ(startJob({.callback = callDriver}), 1);
    ASSERT_TRUE(waitForRules());
    script_.clickBillboard("CURRENT", 0);
    script_.reportEvent(9);
    api_.displayPrompt(1, 1);
    endJob();
    EXPECT_THAT(viewCalls("Uninitialize"), ElementsAre("Uninitialize()"));
    for (const char* where : {"ShowGui", "GetBillboardType", "EvaluateRule", "JSWDisplayPrompt",
                              "the driver's status callback"}) {
        EXPECT_TRUE(hasLine(std::string("ERROR - the module raised an exception in ") + where))
            << where;
    }
    expectNextJobWorks();
}

TEST_F(ForeignExceptionTest, AFaultGoesToTheHostAndLeavesNoLockHeld) {
    using Unwind = test::HostGuard::Unwind;
    const auto update = [] { api_.updateInfo(1, 2, 3, 0, 0, nullptr); };
    const auto terminate = [] { api_.terminate(); };
    const auto raise = [](DWORD code) { return [=] { RaiseException(code, 0, 0, nullptr); }; };
    const struct {
        const char* call;
        std::function<void()> work;
        Unwind unwind = Unwind::withRecord;
        std::function<void()> act = test::fault;
        DWORD code = EXCEPTION_ACCESS_VIOLATION;
        std::size_t parameters = 2;  // a read, and its address
    } rows[] = {
        {"UpdateInfo(", update, Unwind::withoutOne},
        {"UpdateInfo(", update, Unwind::consolidating},
        {"UpdateInfo(", update, Unwind::withRecord, raise(0), 0, 0},
        {"UpdateInfo(", update, Unwind::withRecord, raise(EXCEPTION_STACK_OVERFLOW),
         EXCEPTION_STACK_OVERFLOW, 0},
        {"HideGui(", terminate},
        {"Uninitialize(", terminate},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.call + std::to_string(row.code));
        ASSERT_EQ(startJob(), 1);
        ASSERT_TRUE(waitForRules());
        misbehaveInView(row.call, row.act);
        const auto asked = test::HostGuard::handle(row.work, row.unwind);
        // Once for the module's exception, and again after the library has unwound.
        ASSERT_EQ(asked.size(), 2U);
        for (const EXCEPTION_RECORD& exception : asked) {
            EXPECT_EQ(exception.ExceptionCode, row.code);
            EXPECT_EQ(exception.NumberParameters, row.parameters);
        }
        // No module was called during unwinding.
        EXPECT_THAT(script_.view.calls().back(), ::testing::StartsWith(row.call));
        script_.behave();
        EXPECT_TRUE(anotherThreadGetsThrough());
        endJob();
        expectNextJobWorks();
    }
    EXPECT_FALSE(logContains("0xc00000fd"));  // the stack is too small for that
}

/// Without a handler the process ends before anything is unwound.
TEST_F(ForeignExceptionTest, AFaultIsInTheLogBeforeAnybodyHandlesIt) {
    ASSERT_EQ(startJob(), 1);
    misbehaveInView("UpdateInfo(", test::fault);
    std::vector<std::string> lines;
    test::HostGuard::handle([] { api_.updateInfo(1, 2, 3, 0, 0, nullptr); },
                            test::HostGuard::Unwind::withRecord,
                            [&] {
                                if (lines.empty()) lines = faultLines();
                            });
    EXPECT_THAT(lines, ElementsAre(MatchesRegex("ERROR - the module raised exception 0xc0000005 at "
                                                "qltest-job.exe\\+0x\\w+ in UpdateInfo")));
    EXPECT_EQ(faultLines(), lines);
}

/// The library itself reads through the driver's and the modules' pointers.
TEST_F(ForeignExceptionTest, APointerThatLeadsNowhereLeavesNoLockHeld) {
    const auto* nowhere = reinterpret_cast<const InkInfo*>(8);
    EXPECT_EQ(test::HostGuard::exceptionOf(
                  [&] { api_.init("P", "J", 7, 1, 3, 1, 1, nowhere, 4, 90, nullptr); }),
              EXCEPTION_ACCESS_VIOLATION);
    expectNextJobWorks();
    Settings().deleteValue(
        setting::kDefaultBillboardKey,
        setting::kDefaultBillboardFile.name);  // as on the first run: it is looked up
    script_.ruleResults.clear();               // no thread without a handler calls the catalog
    script_.textsLeadNowhere = true;
    EXPECT_EQ(test::HostGuard::exceptionOf([this] { startJob(); }), EXCEPTION_ACCESS_VIOLATION);
    EXPECT_TRUE(anotherThreadGetsThrough());
    endJob();
    EXPECT_THAT(faultLines(), ElementsAre(EndsWith(" in a text that it returned")));
    expectNextJobWorks();
}

TEST_F(ForeignExceptionTest, AListThatLeadsNowhereEndsInTheLogAndKeepsNothing) {
    ASSERT_EQ(startJob(), 1);
    ASSERT_TRUE(waitForRules());
    script_.listsLeadNowhere = true;
    EXPECT_EQ(test::HostGuard::exceptionOf([&] { script_.clickBillboard("LAUNCH_URL", 0); }),
              EXCEPTION_ACCESS_VIOLATION);
    script_.listsLeadNowhere = false;
    endJob();
    EXPECT_THAT(faultLines(), ElementsAre(EndsWith(" in a list that it returned")));
    EXPECT_TRUE(hasLine("Controller::~Controller: Stop observing the view."));
    expectNextJobWorks();
}

/// The shell runs foreign code in the host's process.
TEST_F(ForeignExceptionTest, AFaultInTheShellLeavesNoLockHeld) {
    test::RecordedShell shell;
    shell.onCall = test::fault;
    const Settings settings;
    settings.write(setting::kCheckForUpdates, 1);
    settings.write(setting::kDateLastChecked, "1/1/2000");
    settings.write(setting::kUpdaterExecutable, "updater.exe");
    ASSERT_EQ(startJob(), 1);
    ASSERT_TRUE(waitForRules());
    EXPECT_EQ(test::HostGuard::exceptionOf([&] { script_.clickBillboard("LAUNCH_APP", 0); }),
              EXCEPTION_ACCESS_VIOLATION);
    EXPECT_EQ(test::HostGuard::exceptionOf([] { api_.terminate(); }), EXCEPTION_ACCESS_VIOLATION);
    EXPECT_THAT(faultLines(),
                ElementsAre(EndsWith(" in ShellExecuteExA"), EndsWith(" in ShellExecuteA")));
    settings.write(setting::kCheckForUpdates, 0);
    expectNextJobWorks();
}

/// From the host through the view into a click that ends in the catalog: two guards, one fault.
TEST_F(ForeignExceptionTest, AFaultPassesEveryGuardOfItsThread) {
    ASSERT_EQ(startJob(), 1);
    ASSERT_TRUE(waitForRules());
    script_.onCatalogCall = [](const std::string& call) {
        if (call == "GetBillboardFileName") test::fault();
    };
    misbehaveInView("UpdateInfo(", [&] { script_.clickBillboard("CURRENT", 0); });
    EXPECT_EQ(test::HostGuard::exceptionOf([] { api_.updateInfo(1, 2, 3, 0, 0, nullptr); }),
              EXCEPTION_ACCESS_VIOLATION);
    EXPECT_THAT(faultLines(), ElementsAre(EndsWith(" in GetBillboardFileName")));
    script_.behave();
    EXPECT_TRUE(anotherThreadGetsThrough());
    endJob();
    expectNextJobWorks();
}

/// A caller's data is read before a lock is taken.
TEST_F(ForeignExceptionTest, ABadPointerOfACallerHarmsNobodyElse) {
    const auto* const bad = reinterpret_cast<const char*>(std::uintptr_t{1});
    ASSERT_EQ(startJob(), 1);
    ASSERT_TRUE(waitForRules());
    for (const std::function<void()>& call :
         {std::function<void()>([&] { startJob({.jobName = bad}); }),
          std::function<void()>([&] { script_.clickBillboard(bad, 0); })}) {
        EXPECT_EQ(test::HostGuard::exceptionOf(call), EXCEPTION_ACCESS_VIOLATION);
        EXPECT_TRUE(anotherThreadGetsThrough());
    }
    endJob();
    expectNextJobWorks();
}

/// The library's data about a thread ends with the thread, whatever was on its stack.
TEST_F(ForeignExceptionTest, AThreadThatEndsInTheCallbackIsForgotten) {
    ASSERT_EQ(startJob({.callback = callDriver}), 1);
    ASSERT_TRUE(waitForRules());
    inCallback = [] { ExitThread(0); };
    const auto report = [](void* script) -> DWORD {
        static_cast<test::Script*>(script)->reportEvent(3);
        return 1;
    };
    const KernelHandle window(CreateThread(nullptr, 0, report, &script_, 0, nullptr));
    ASSERT_EQ(WaitForSingleObject(window.get(), 10000), WAIT_OBJECT_0);
    DWORD code = 1;
    EXPECT_TRUE(GetExitCodeThread(window.get(), &code));
    EXPECT_EQ(code, 0U);
    EXPECT_TRUE(anotherThreadGetsThrough());
    endJob();
    expectNextJobWorks();
}

/// No outer frame handles it, or the first handler repairs the cause: nothing is unwound.
TEST_F(ForeignExceptionTest, AnExceptionThatIsContinuedIsNoneOfTheLibrarysBusiness) {
    ASSERT_EQ(startJob(), 1);
    bool goneOn = false;
    misbehaveInView("UpdateInfo(", [&] {
        RaiseException(0x406D1388, 0, 0, nullptr);  // names a thread for a debugger
        goneOn = true;
    });
    void* const handler = AddVectoredExceptionHandler(1, [](EXCEPTION_POINTERS* pointers) -> LONG {
        return pointers->ExceptionRecord->ExceptionCode == 0x406D1388 ? EXCEPTION_CONTINUE_EXECUTION
                                                                      : EXCEPTION_CONTINUE_SEARCH;
    });
    api_.updateInfo(1, 2, 3, 0, 0, nullptr);
    RemoveVectoredExceptionHandler(handler);
    EXPECT_TRUE(goneOn);
    EXPECT_THAT(faultLines(), IsEmpty());
}

}  // namespace jsw
