#include "samples/common/XmlNode.h"
#include "samples/rules/RuleReader.h"
#include "samples/rules/RuleSet.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace jsw::sample {
namespace {

using Attributes = std::map<std::string, std::string, std::less<>>;

XmlNode rulesWith(const std::string& condition, const Attributes& attributes) {
    XmlNode element{condition, attributes, "", {}};
    XmlNode rule{"rule", {{"result", "ANY"}}, "", {element}};
    return {"rules", {}, "", {rule}};
}

/** A three-page job with ink 1 known to be 40 %, ink 2 10 %, and the others not known. */
JobFacts ordinaryJob() {
    JobFacts job;
    for (int32_t& percent : job.inkInfo.InkPercent) percent = -1;
    job.inkInfo.InkPercent[0] = 40;
    job.inkInfo.InkPercent[1] = 10;
    job.printer = "Quillon Sim 2000";
    job.jobName = "Report.PDF";
    job.totalPages = 3;
    job.totalCopies = 1;
    job.shown.special = 2;
    job.shown.ink = 1;
    job.shown.carts["1,2"] = 1;
    return job;
}

struct ConditionRow {
    const char *what, *condition;
    Attributes attributes;
    bool holds;
};

TEST(RulesTest, ConditionsHoldForWhatTheJobIsKnownToBe) {
    const ConditionRow rows[] = {
        {"lowest known ink", "ink", {{"below", "15"}}, true},
        {"bounds are exclusive", "ink", {{"below", "10"}}, false},
        {"one slot", "ink", {{"slot", "1"}, {"below", "15"}}, false},
        {"both bounds", "ink", {{"slot", "1"}, {"above", "39"}, {"below", "41"}}, true},
        {"an unknown slot is not low", "ink", {{"slot", "10"}, {"below", "15"}}, false},
        {"an unknown slot is not full", "ink", {{"slot", "10"}, {"above", "-5"}}, false},
        {"pages", "pages", {{"above", "2"}, {"below", "4"}}, true},
        {"copies", "copies", {{"above", "1"}}, false},
        {"printer, part", "printer", {{"contains", "sim 2"}}, true},
        {"printer, whole", "printer", {{"equals", "quillon sim"}}, false},
        {"job, whole", "job", {{"equals", "report.pdf"}}, true},
        {"job, part", "job", {{"contains", ".doc"}}, false},
        {"special by default", "shown", {{"above", "1"}}, true},
        {"ink", "shown", {{"kind", "INK"}, {"below", "2"}}, true},
        {"cartridges shown before", "shown", {{"carts", "1,2"}, {"below", "1"}}, false},
        {"cartridges never shown", "shown", {{"carts", "3"}, {"below", "1"}}, true},
    };
    for (const ConditionRow& row : rows) {
        const auto rules = readRules(rulesWith(row.condition, row.attributes));
        ASSERT_EQ(rules.size(), 1U) << row.what;
        EXPECT_EQ(applies(rules.front(), ordinaryJob()), row.holds) << row.what;
    }
}

TEST(RulesTest, NothingKnownFulfilsNoInkOrPageCondition) {
    JobFacts job = ordinaryJob();
    for (int32_t& percent : job.inkInfo.InkPercent) percent = std::numeric_limits<int32_t>::min();
    job.totalPages = -1;
    for (const char* condition : {"ink", "pages"}) {
        const auto rules = readRules(rulesWith(condition, {{"below", "100000"}}));
        EXPECT_FALSE(applies(rules.front(), job)) << condition;
    }
}

TEST(RulesTest, ARuleAppliesWhenAllItsConditionsHold) {
    XmlNode root = rulesWith("ink", {{"below", "15"}});
    XmlNode& rule = root.children.front();
    rule.children.push_back({"job", {{"contains", "report"}}, "", {}});
    EXPECT_TRUE(applies(readRules(root).front(), ordinaryJob()));
    rule.children.push_back({"pages", {{"above", "3"}}, "", {}});
    EXPECT_FALSE(applies(readRules(root).front(), ordinaryJob()));
    rule.children.clear();
    EXPECT_TRUE(applies(readRules(root).front(), JobFacts{}));
}

TEST(RulesTest, RulesKeepTheirOrderResultAndHistoryFlag) {
    const XmlNode root{"rules",
                       {},
                       "",
                       {{"rule", {{"result", "FIRST"}, {"history", "TRUE"}}, "", {}},
                        {"remark", {}, "", {}},
                        {"rule", {{"result", "SECOND"}}, "", {}}}};
    const auto rules = readRules(root);
    ASSERT_EQ(rules.size(), 2U);
    EXPECT_EQ(rules[0].result, "FIRST");
    EXPECT_TRUE(rules[0].historyChecked);
    EXPECT_EQ(rules[1].result, "SECOND");
    EXPECT_FALSE(rules[1].historyChecked);
}

struct BadConditionRow {
    const char* condition;
    Attributes attributes;
    const char* message;
};

TEST(RulesTest, AnUnclearConditionRefusesTheFileAndNamesTheRule) {
    const BadConditionRow rows[] = {
        {"inc", {{"below", "15"}}, "rule 1: unknown condition <inc>"},
        {"ink", {}, "rule 1: <ink> needs above or below"},
        {"ink", {{"below", "15%"}}, "rule 1: '15%' is not a number for below"},
        {"ink", {{"slot", "11"}, {"below", "1"}}, "rule 1: there is no ink slot 11"},
        {"ink", {{"slot", "-1"}, {"below", "1"}}, "rule 1: there is no ink slot -1"},
        {"pages",
         {{"above", "99999999999999999999"}},
         "rule 1: '99999999999999999999' is not a number for above"},
        {"job", {}, "rule 1: <job> needs either equals or contains"},
        {"job",
         {{"equals", "a"}, {"contains", "b"}},
         "rule 1: <job> needs either equals or contains"},
        {"shown",
         {{"kind", "standard"}, {"below", "1"}},
         "rule 1: no billboards of kind 'standard' are counted"},
        {"shown",
         {{"kind", "special"}, {"carts", "1"}, {"below", "1"}},
         "rule 1: no billboards of kind 'special' are counted"},
    };
    for (const BadConditionRow& row : rows) {
        try {
            static_cast<void>(readRules(rulesWith(row.condition, row.attributes)));
            ADD_FAILURE() << "accepted; expected: " << row.message;
        } catch (const RuleError& error) {
            EXPECT_STREQ(error.what(), row.message);
        }
    }
    const XmlNode noResult{"rules", {}, "", {{"rule", {}, "", {}}}};
    EXPECT_THROW(static_cast<void>(readRules(noResult)), RuleError);
}

}  // namespace
}  // namespace jsw::sample
