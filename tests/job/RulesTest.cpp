#include "PublicLib/text/Text.h"
#include "jsw/modules/ModuleBinding.h"
#include "jsw/settings/OfnSettings.h"
#include "tests/job/JobTest.h"
#include "tests/support/ImportTable.h"
#include "tests/support/Words.h"

#include <algorithm>
#include <atomic>
#include <stdexcept>

namespace jsw {

using namespace ::testing;

namespace {

constexpr char kDefaultShown[] = "DisplayBillboard(default.bb,false,false)";

std::string initialised() {
    return "InitializeEngine(42,SimulatedPrinter,report.pdf,3,2)";
}

}  // namespace

class RulesTest : public test::JobTest {
  protected:
    void SetUp() override {
        JobTest::SetUp();
        addBillboard("TIP1", {.file = "tip1.bb", .type = "promotion"});
        addBillboard("TIP2", {.file = "tip2.bb", .type = "promotion", .navigate = true});
        addBillboard("INK1", {.file = "ink1.bb", .type = "Ink", .carts = "black;colour"});
        addBillboard("PLAIN", {.file = "plain.bb", .type = "STANDARD"});
        addBillboard("LEVELS", {.file = "levels.bb", .type = "ink_Status"});
        script_.billboards["LOST"] = {.file = "lost.bb", .type = "promotion"};
        script_.categories["TIPS"] = {"TIP1", "TIP2"};
    }

    std::string outcome() const {
        const auto calls = script_.rules.calls();
        for (const auto& call : calls) {
            if (call.starts_with("UpdateSettings")) return call;
        }
        return "none";
    }
};

TEST_F(RulesTest, TheEngineIsAskedInOrderAndToldTheOutcome) {
    script_.ruleResults = {"", "TIPS"};
    runJob();
    EXPECT_THAT(script_.rules.calls(),
                ElementsAre(initialised(), "EvaluateRule()", "EvaluateRule()",
                            "UpdateSettings(,false,true)", "UnInitialize()"));
    EXPECT_THAT(viewCalls("DisplayBillboard"),
                ElementsAre(kDefaultShown, "DisplayBillboard(tip1.bb,false,false)"));
    EXPECT_THAT(historyIds(), ElementsAre("TIP1"));
    EXPECT_TRUE(
        hasLine("Controller::ProcessRules: Rule result is CategoryId=TIPS, "
                "checkHistory=true"));
    EXPECT_TRUE(hasLine("Controller::ProcessRules: ProjectId=TIP2"));
    EXPECT_TRUE(
        hasLine("Controller::ProcessRules: Should show the billboard, showSpecial=true "
                "isInkType=falseisStandardType=false"));
    EXPECT_TRUE(hasLine("<<< Controler::ProcessRules: "));
}

/// What is shown, stored and reported for the rules' results, one row each. "-" is no answer.
TEST_F(RulesTest, ResultsLeadToWhatIsShownKeptAndReported) {
    struct {
        const char *results, *history;
        bool checkHistory, specialsOn;
        const char *shown, *outcome, *historyAfter;
    } const rows[] = {
        {"", "", true, true, "", ",false,false", ""},
        {"- -", "", true, true, "", ",false,false", ""},
        {"TIPS", "TIP1", true, true, "tip2.bb,true", ",false,true", "TIP1 TIP2"},
        {"TIPS", "TIP1", false, true, "tip1.bb,false", ",false,true", "TIP1 TIP1"},
        {"TIPS", "TIP1 TIP2", true, true, "", ",false,false", "TIP1 TIP2"},
        {"LOST INK1 TIPS", "", true, true, "ink1.bb,false", "black;colour,true,false", ""},
        {"PLAIN", "", true, true, "plain.bb,false", ",false,true", ""},  // is not stored
        {"PLAIN", "", true, false, "plain.bb,false", ",false,false", ""},
        {"INK1", "", true, false, "ink1.bb,false", "black;colour,true,false", ""},
        {"TIPS PLAIN", "", true, false, "", ",false,false", ""},
        {"LEVELS", "", true, true, "", ",true,false", ""},
        {"LEVELS NOBODY", "", true, true, "", ",false,false", ""},
        {"NOBODY", "", true, true, "", ",false,false", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(concat(row.results, " after ", row.history));
        Settings().deleteKey(setting::kHistoryKey);
        setHistory(test::words(row.history));
        OfnSettings("").setValue("GUI\\JSW\\", "Show Special Messages", row.specialsOn);
        script_.ruleResults = test::words(row.results);
        std::ranges::replace(script_.ruleResults, "-", "");
        script_.checkHistory = row.checkHistory;
        script_.view.clear();
        runJob();
        std::vector<std::string> shown = {kDefaultShown};
        if (*row.shown != '\0') shown.push_back(concat("DisplayBillboard(", row.shown, ",false)"));
        EXPECT_EQ(viewCalls("DisplayBillboard"), shown);
        EXPECT_EQ(outcome(), concat("UpdateSettings(", row.outcome, ")"));
        EXPECT_EQ(historyIds(), test::words(row.historyAfter));
    }
}

TEST_F(RulesTest, AnInkStatusResultIsKeptForItsActionAndRulesGoOn) {
    script_.ruleResults = {"LEVELS", "PLAIN"};
    startJob();
    ASSERT_TRUE(waitForRules());
    script_.clickBillboard("ink_status", 0);
    script_.clickBillboard("Current", 0);
    endJob();
    EXPECT_THAT(viewCalls("DisplayBillboard"),
                ElementsAre(kDefaultShown, "DisplayBillboard(plain.bb,false,false)",
                            "DisplayBillboard(levels.bb,false,false)",
                            "DisplayBillboard(plain.bb,false,false)"));
}

TEST_F(RulesTest, AnEngineThatDoesNotStartIsNotAsked) {
    script_.engineStarts = false;
    script_.ruleResults = {"TIPS"};
    runJob();
    EXPECT_THAT(script_.rules.calls(), ElementsAre(initialised(), "UnInitialize()"));
    EXPECT_TRUE(
        hasLine("Controller::ProcessRules: ERROR - Unable to initialize the rules engine. "
                "NOT processing rules!!!"));
}

TEST_F(RulesTest, WithoutTheModulesTheJobRunsOn) {
    Settings().write(setting::kRulesEngineModule, "absent.dll");
    Settings().write(setting::kCatalogModule, "absent2.dll");
    EXPECT_EQ(startJob(), 1);
    ASSERT_TRUE(
        test::eventually([] { return logContains("RulesEngine::uninitialize: The rules"); }));
    script_.clickBillboard("LAUNCH_URL", 0);
    endJob();
    EXPECT_THAT(viewCalls("DisplayBillboard"), ElementsAre("DisplayBillboard(,false,false)"));
    EXPECT_TRUE(hasLine("ERROR - BasicDll<Handler>::init() Unable to load DLL=.\\absent.dll"));
    EXPECT_TRUE(hasLine("Catalog::initialize: ERROR - Catalog is not loaded."));
    EXPECT_TRUE(hasLine("Controller::launchUrl: empty action parameter. Doing nothing."));
}

TEST_F(RulesTest, AnEndlessEngineDoesNotHoldTheEndOfTheJob) {
    script_.rulesNeverEnd = true;
    startJob();
    ASSERT_TRUE(test::eventually([&] { return script_.rules.calls().size() > 100; }));
    const DWORD before = GetTickCount();
    endJob();
    EXPECT_LT(GetTickCount() - before, 2000U);
    EXPECT_EQ(outcome(), "UpdateSettings(,false,false)");
}

TEST_F(RulesTest, AnEngineThatRaisesInThreeRulesIsAskedNoMore) {
    script_.rulesNeverEnd = true;
    int rule = 0;
    script_.onEvaluateRule = [&] {
        if (++rule % 2 != 0) throw std::runtime_error("rule");
    };
    runJob();
    EXPECT_EQ(rule, 5);
    EXPECT_TRUE(
        hasLine("ERROR - 3 exceptions in one run of the rules. NO more rules are processed."));
}

TEST_F(RulesTest, AnEngineWithManyResultsLeavesTheProcessorToOthersOnceInAHundred) {
    Settings().setValue(setting::kLoggerKey, "startLog", 0);
    std::atomic<int> pauses{0};
    const auto sleep =
        test::replaceImport<decltype(Sleep)>(test::ImportTable(GetModuleHandleA("jsw.dll")),
                                             "Sleep", [&](auto original, DWORD milliseconds) {
                                                 if (milliseconds == 10) ++pauses;
                                                 original(milliseconds);
                                             });
    for (const char* result : {"", "NO_SUCH"}) {
        pauses = 0;
        script_.ruleResults.assign(1050, result);
        runJob();
        EXPECT_EQ(pauses, 10) << result;
    }
}

TEST_F(RulesTest, AWindowEventStopsTheRules) {
    script_.rulesNeverEnd = true;
    script_.onEvaluateRule = [&] { script_.reportEvent(2); };
    runJob();
    EXPECT_THAT(script_.rules.calls(),
                ElementsAre(initialised(), "EvaluateRule()", "UpdateSettings(,false,false)",
                            "UnInitialize()"));
}

TEST_F(RulesTest, OddAnswersOfModulesAreTaken) {
    const std::string longId(100 * 1024, 'L');
    addBillboard(longId, {.file = "long.bb"});
    script_.categories["ENDS"] = {"LOST", "", "TIP1"};  // the empty text ends the list
    script_.categories["ODD"] = {longId};
    script_.emptyLists = true;
    script_.ruleResults = {"ENDS", "ODD"};
    runJob();
    EXPECT_THAT(viewCalls("DisplayBillboard"), Contains("DisplayBillboard(long.bb,false,false)"));
    EXPECT_TRUE(hasLine("Catalog::getBillboardIds: Added project ID=" + longId));

    script_.ruleResults = {"PLAIN"};
    runJob();
    EXPECT_TRUE(
        hasLine("Catalog::getBillboardIds: There is not a project Ids for the given "
                "category."));
}

TEST_F(RulesTest, AClickFromInsideDisplayBillboardIsTolerated) {
    script_.ruleResults = {"TIPS"};
    script_.onViewCall = [&](const std::string& call) {
        if (call.starts_with("DisplayBillboard(tip1.bb")) script_.clickBillboard("INK_STATUS", 0);
    };
    script_.billboards["INK_STATUS"] = script_.billboards["LEVELS"];
    runJob();
    EXPECT_THAT(viewCalls("DisplayBillboard"),
                ElementsAre(kDefaultShown, "DisplayBillboard(tip1.bb,false,false)",
                            "DisplayBillboard(levels.bb,false,false)"));
    EXPECT_THAT(historyIds(), ElementsAre("TIP1"));
}

TEST_F(RulesTest, TheUsersWishForSpecialMessagesCountsAtOnce) {
    script_.ruleResults = {"TIP1"};
    script_.checkHistory = false;  // the first job may or may not show it
    for (const bool wish : {false, true}) {
        startJob();
        script_.saveAppearance("Show Special Messages", !wish);
        endJob();
        script_.onEvaluateRule = [&] { script_.saveAppearance("Show Special Messages", wish); };
        script_.view.clear();
        runJob();
        script_.onEvaluateRule = nullptr;
        EXPECT_EQ(viewCalls("DisplayBillboard").size(), wish ? 2U : 1U);
    }
}

TEST(ModuleMemoryTest, IsThereForEverySizeThatThereCanBe) {
    for (const std::int32_t size : {0, 1, 100000}) {
        EXPECT_TRUE(ModuleMemory<void>(allocateForModule(size))) << size;
    }
    EXPECT_EQ(allocateForModule(-1), nullptr);
}

}  // namespace jsw
