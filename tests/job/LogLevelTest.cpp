// The level of each kind of line. Support switches levels on and relies on the lines that come with
// them.

#include "PublicLib/logging/LoggerComponent.h"
#include "tests/job/JobTest.h"
#include "tests/job/RecordedShell.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <process.h>

#include <algorithm>
#include <stdexcept>

namespace jsw {

using namespace ::testing;

class LogLevelTest : public test::JobTest {
  protected:
    void SetUp() override {
        JobTest::SetUp();
        addBillboard("SEEN", {.file = "seen.bb", .type = "promotion"});
        addBillboard("TIP", {.file = "tip.bb", .type = "promotion"});
        script_.categories["TIPS"] = {"SEEN", "TIP"};
        script_.categories["SINGLE"] = {"SEEN"};
        script_.ruleResults = {"SINGLE", "TIPS"};
    }

    /// The lines of a job with only these levels on, in all components.
    std::vector<std::string> linesAt(std::uint32_t mask) {
        const Settings settings;
        for (const char* component : {"All", "JSW", "RulesEng", "Catalog", "Updater"}) {
            settings.setValue(setting::kLoggerKey, component, mask);
        }
        setHistory({"SEEN"});
        DeleteFileA(logPath().c_str());
        runJob();
        auto lines = logLines();
        DeleteFileA(logPath().c_str());
        return lines;
    }
};

TEST_F(LogLevelTest, RulesAndModuleCallsHaveLevelsOfTheirOwn) {
    EXPECT_THAT(linesAt(kLogRules),
                ElementsAre("Controller::ProcessRules: Rule result is ProjectId=SINGLE, "
                            "checkHistory=true",
                            "Controller::ProcessRules: ProjectId=SEEN was in History (failed "
                            "history check).",
                            "Controller::ProcessRules: Rule result is CategoryId=TIPS, "
                            "checkHistory=true",
                            "Controller::ProcessRules: ProjectId=SEEN",
                            "Controller::ProcessRules: ProjectId=TIP",
                            "Controller::ProcessRules: ProjectId=SEEN was in History (failed "
                            "history check).",
                            "Controller::changeBillboard: Billboard id=TIP, fileName=tip.bb."));
    auto calls = linesAt(kLogModuleCall);
    EXPECT_THAT(calls, Each(::testing::AnyOf(::testing::StartsWith(">>> "),
                                             ::testing::StartsWith("<<< "))));
    EXPECT_THAT(calls,
                IsSupersetOf({">>> Controller::jswInit: ", "<<< Controller::jswTerminate: ",
                              ">>> BillboardView::jswInit bringing up gui",
                              "<<< BillboardView::jswInit bringing up gui",
                              ">>> BillboardView::displayBillboard: ",
                              "<<< BillboardView::displayBillboard: ",
                              ">>> BillboardView::showGui: ", "<<< BillboardView::showGui: ",
                              ">>> BillboardView::hideGui: ", "<<< BillboardView::hideGui: ",
                              ">>> Controler::ProcessRules: ", "<<< Controler::ProcessRules: "}));
}

TEST_F(LogLevelTest, TracesDetailsAndTheLinesOfATraceAreToldApart) {
    const auto isTrace = [](const std::string& line) {
        return line[0] == '+' || line[0] == '-' || line.starts_with("Params:friendlyName=");
    };
    const auto traces = linesAt(kLogTrace);
    EXPECT_TRUE(std::all_of(traces.begin(), traces.end(), isTrace));
    EXPECT_THAT(traces, IsSupersetOf({"+Controller::jswInit: ", "-Controller::jswInit: ",
                                      "-BillboardView::jswInit:  rc=1",
                                      "-Catalog::getBillboardFileName:  rc=tip.bb"}));
    EXPECT_EQ(std::count(traces.begin(), traces.end(), "+Controller::ProcessRules: "), 1);
    const auto details = linesAt(kLogDetail);
    ASSERT_THAT(details, Not(IsEmpty()));
    EXPECT_EQ(details.front(), "inkinfo:");
    EXPECT_EQ(details.size(), 31U);
    EXPECT_THAT(linesAt(kLogTraceLine), IsEmpty());  // their trace is missing
    auto both = linesAt(kLogTrace | kLogTraceLine);
    std::erase_if(both, isTrace);
    EXPECT_THAT(both, ::testing::Contains("BillboardView::jswInit: Showing GUI"));
}

TEST_F(LogLevelTest, ErrorsAreWrittenWithTheLogOff) {
    const Settings settings;
    settings.setValue(setting::kLoggerKey, "startLog", 0);
    script_.rulesNeverEnd = true;
    script_.onEvaluateRule = [] { throw std::runtime_error("rule"); };
    script_.billboards["DEFAULT"].actions = {"jswnone:_^L3^_"};
    const test::ImportTable imports(GetModuleHandleA("jsw.dll"));
    const test::RecordedShell shell;
    startJob();
    ASSERT_TRUE(waitForRules());
    script_.clickBillboard("LAUNCH_URL", 0);
    api_.displayPrompt(1, 1);
    {
        const auto noThread = test::replaceImport<decltype(_beginthreadex)>(
            imports, "_beginthreadex",
            [](void*, unsigned, unsigned(__stdcall*)(void*), void*, unsigned,
               unsigned*) -> std::uintptr_t {
                SetLastError(ERROR_NOT_ENOUGH_MEMORY);
                return 0;
            });
        EXPECT_EQ(startJob(), 0);
    }
    endJob();
    settings.write(setting::kViewModule, "absent.dll");
    EXPECT_EQ(startJob(), 0);
    const std::string raised = "ERROR - the module raised an exception in EvaluateRule";
    EXPECT_THAT(
        logLines(),
        ElementsAre(raised, raised, raised,
                    "ERROR - 3 exceptions in one run of the rules. NO more rules are processed.",
                    "WARNING: Cartridge ink level tag 'L3' not valid.",
                    ::testing::StartsWith("ERROR - BasicDll<Handler>::init() Unable to load DLL="),
                    "jswInitEx called but GUI not loaded",
                    "ERROR - unable to initialize old Jsw GUI.",
                    "ERROR: unable to create rules processing thread.",
                    ::testing::StartsWith("file:Thread:253: Thread::launch(): Win32(8"),
                    "ERROR - BasicDll<Handler>::init() Unable to load DLL=.\\absent.dll"));
}

}  // namespace jsw
