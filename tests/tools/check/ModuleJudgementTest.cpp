#include "tests/tools/check/JudgementTest.h"
#include "tools/jswctl/NearestName.h"
#include "tools/jswctl/module/ModuleJudgement.h"
#include "tools/jswctl/module/TrialLines.h"

#include <gtest/gtest.h>

namespace jsw::ctl {
namespace {

Report judged(const ModuleFacts& facts) {
    Report report;
    judgeModule(facts, report);
    return report;
}

TEST(ModuleJudgementTest, AGoodModuleOfEachKindHasNoFindings) {
    for (const ModuleKind& kind : moduleKinds()) {
        const ModuleFacts facts = goodModule(kind);
        EXPECT_TRUE(isLoadable(facts));
        const Report report = judged(facts);
        EXPECT_EQ(report.count(Severity::error) + report.count(Severity::warning), 0U) << kind.name;
        EXPECT_EQ(report.findings().size(), 1U) << asText(report);
    }
}

struct BadModuleRow {
    void (*spoil)(ModuleFacts& f);
    const char* finding;  ///< part of the error
    bool loadable;
};

TEST(ModuleJudgementTest, EachFaultIsNamed) {
    const BadModuleRow rows[] = {
        {[](ModuleFacts& f) { f.exists = false; },
         "there is no file C:\\m\\module.dll; JSWInit returns 0", false},
        {[](ModuleFacts& f) { f.isFolder = true; }, "is a folder", false},
        {[](ModuleFacts& f) { f.unreadable = "error 5"; }, "cannot be read: error 5", false},
        {[](ModuleFacts& f) { f.file.problem = "it is no library"; },
         "cannot be loaded: it is no library", false},
        {[](ModuleFacts& f) { f.file.machine = kMachineX86; },
         "is a 32-bit library, not a 64-bit one", false},
        {[](ModuleFacts& f) { f.file.isDll = false; }, "is a program, not a library", false},
        {[](ModuleFacts& f) {
             f.missing = {{"far.dll", "near.dll"}};
         },
         "near.dll needs far.dll, which is not found", false},
        {[](ModuleFacts& f) { std::ranges::replace(f.file.exports, "SetJobName", "SetJobname"); },
         "SetJobName is missing; the module has SetJobname. Export it as SetJobName", true},
        {[](ModuleFacts& f) {
             std::ranges::replace(f.file.exports, "SetJobName", "_Z10SetJobNamePKc");
         },
         "the module has _Z10SetJobNamePKc", true},
        {[](ModuleFacts& f) { f.file.exports = {"EvaluateRule"}; },
         "is a rules module; JSWInit returns 0", true},
        {[](ModuleFacts& f) { f.file.exports = {"DllMain"}; },
         "exports none of the entry points of a view module", true},
        {[](ModuleFacts& f) { f.trial.faults = {"it is wrong"}; }, "it is wrong", true},
        {[](ModuleFacts& f) {
             f.trial.finished = false;
             f.trial.exitCode = 0xC0000005;
             f.trial.calls.push_back({"Initialize", false, 0, ""});
         },
         "it crashes in Initialize (0xC0000005)", true},
        {[](ModuleFacts& f) {
             f.trial.finished = false;
             f.trial.calls.push_back({"Initialize", false, 0, ""});
         },
         "it ends the process in Initialize", true},
        {[](ModuleFacts& f) { f.trial.timedOut = true; }, "it does not return from LoadLibrary",
         true},
        {[](ModuleFacts& f) {
             f.trial.calls.push_back({"Initialize", true, 1, kException});
         },
         "Initialize raised a C++ exception", true},
        {[](ModuleFacts& f) { f.trial.problem = "it cannot be loaded: 1114"; },
         "it cannot be loaded: 1114", true},
    };
    for (const BadModuleRow& row : rows) {
        ModuleFacts facts = goodModule(*findModuleKind("view"));
        row.spoil(facts);
        const Report report = judged(facts);
        EXPECT_TRUE(has(report, Severity::error, row.finding)) << row.finding << ":\n"
                                                               << asText(report);
        EXPECT_EQ(isLoadable(facts), row.loadable) << row.finding;
    }
}

TEST(ModuleJudgementTest, WhatIsNoFaultOnlyGetsANote) {
    ModuleFacts facts = goodModule(*findModuleKind("view"));
    std::erase(facts.file.exports, "SetPortType");
    facts.file.exports.emplace_back("MyOwnHelper");
    const Report report = judged(facts);
    EXPECT_EQ(report.count(Severity::error) + report.count(Severity::warning), 0U)
        << asText(report);
    EXPECT_TRUE(has(report, Severity::note, "which is allowed: SetPortType"));
    EXPECT_TRUE(has(report, Severity::note, "does not know: MyOwnHelper"));

    // What a view may omit, but the user should know.
    std::erase(facts.file.exports, "ShowGui");
    EXPECT_TRUE(has(judged(facts), Severity::warning, "ShowGui is missing: no window appears"));

    ModuleFacts prompts = goodModule(*findModuleKind("legacy"));
    prompts.exists = false;
    EXPECT_EQ(judged(prompts).count(Severity::error), 0U);
    EXPECT_TRUE(has(judged(prompts), Severity::warning, "JSWDisplayPrompt shows nothing"));
}

TEST(ModuleJudgementTest, SlowCallsAreNamedWithTheirTimeAndEqualOnesOnce) {
    ModuleFacts facts = goodModule(*findModuleKind("catalog"));
    facts.trial.calls = {{"A", true, 1250.6, ""}, {"B", true, 1, "yes"}, {"A", true, 1, ""}};
    EXPECT_TRUE(has(judged(facts), Severity::warning, "A took 1250 ms"));
    Report calls;
    tellCalls(facts, calls);
    EXPECT_EQ(calls.findings().size(), 2U) << asText(calls);
    EXPECT_TRUE(has(calls, Severity::note, "A: 1250.6 ms, 2 times")) << asText(calls);
}

TEST(NearestNameTest, OnlyWhatWasProbablyMeantIsNamed) {
    EXPECT_EQ(editDistance("SetJobName", "SetJobname"), 1U);
    EXPECT_EQ(editDistance("", "abc"), 3U);
    EXPECT_EQ(nearestName("ShowGui", {"ShowGUI", "HideGui"}), "ShowGUI");
    EXPECT_EQ(nearestName("ShowGui", {"Unrelated"}), "");
    EXPECT_EQ(nearestName("ShowGui", {}), "");
    EXPECT_EQ(nearestName("UnInitialize", {"Uninitialize", "Initialize"}), "Uninitialize");
    EXPECT_EQ(nearestName("All", {"Jsw"}), "");
}

TEST(TrialLinesTest, WhatWasToldBeforeTheEndSurvivesIt) {
    ModuleTrial trial;
    for (const std::string& line :
         {trialline::begin("A"), trialline::end(2.5, "\xE4 \"quoted\"\n"), trialline::begin("B"),
          std::string("no line of ours"), std::string("{\"end\":\"soon\"}"), std::string("[1]")}) {
        takeTrialLine(line, trial);
    }
    ASSERT_EQ(trial.calls.size(), 2U);
    EXPECT_TRUE(trial.calls[0].ended);
    EXPECT_DOUBLE_EQ(trial.calls[0].milliseconds, 2.5);
    EXPECT_EQ(trial.calls[0].answer, "\xE4 \"quoted\"\n");
    EXPECT_FALSE(trial.calls[1].ended);
    EXPECT_FALSE(trial.finished);
    takeTrialLine(trialline::problem("p"), trial);
    takeTrialLine(trialline::finished(), trial);
    EXPECT_EQ(trial.problem, "p");
    EXPECT_TRUE(trial.finished);
}

}  // namespace
}  // namespace jsw::ctl
