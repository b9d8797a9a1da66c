// At which level each kind of line is written. Who reads the log of a customer switches on what is
// needed, and counts on what comes with it.

#include "PublicLib/logging/LoggerComponent.h"
#include "tests/job/JobTest.h"

#include <algorithm>

namespace jsw {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;

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

    /// What a job writes when only these levels are on, in all components.
    std::vector<std::string> linesAt(std::uint32_t mask) {
        const Settings settings;
        for (const char* component : {"All", "JSW", "RulesEng", "Catalog", "Updater"}) {
            settings.setDwordValue(setting::kLoggerKey, component, mask);
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
    const auto details = linesAt(kLogDetail);
    ASSERT_THAT(details, Not(IsEmpty()));
    EXPECT_EQ(details.front(), "inkinfo:");
    EXPECT_EQ(details.size(), 31U);
    EXPECT_THAT(linesAt(kLogTraceLine), IsEmpty());  // there is no trace that they belong to
    auto both = linesAt(kLogTrace | kLogTraceLine);
    std::erase_if(both, isTrace);
    EXPECT_THAT(both, ::testing::Contains("BillboardView::jswInit: Showing GUI"));
}

}  // namespace jsw
