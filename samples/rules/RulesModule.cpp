/**
 * @file RulesModule.cpp
 * The entry points of the sample rules engine, which evaluates a rules file in file order.
 */
#include "samples/common/HostStore.h"
#include "samples/common/ModuleLock.h"
#include "samples/common/ProblemFile.h"
#include "samples/common/ReturnedText.h"
#include "samples/common/XmlFile.h"
#include "samples/rules/RuleReader.h"
#include "samples/rules/RuleSet.h"
#include "samples/rules/ShownMemory.h"
#include <jsw/rules.h>

#include <mutex>
#include <vector>

JSW_RULES_ENTRY_POINTS(JSW_MODULE_DECLARE)
JSW_RULES_REQUIRE_ENTRY_POINTS

namespace {

using jsw::sample::JobFacts;
using jsw::sample::Rule;

/** One job's run through the rules. */
struct Run {
    JswAllocate allocate = nullptr;
    JobFacts job;
    std::vector<Rule> rules;
    size_t next = 0;  ///< the next rule of EvaluateRule
};

/** The library calls on one thread; the lock protects against other callers. */
jsw::sample::ModuleLock runLock;
Run run;

/** Returns ask(run); the empty answer on failure. */
template <class Answer, class Ask>
Answer answer(Ask ask) noexcept {
    try {
        const std::lock_guard lock(runLock);
        return ask(run);
    } catch (...) {
        return Answer{};
    }
}

constexpr InkInfo kInkNotKnown = JSW_INK_UNKNOWN;

std::vector<Rule> loadRules(bool& loaded) {
    const std::string path =
        jsw::sample::HostStore().dataFile("Settings\\RulesEngine\\", "RulesFilename", "rules.xml");
    const auto root = jsw::sample::loadXmlFile(path);
    loaded = false;
    if (!root) {
        return {};
    }
    try {
        std::vector<Rule> rules = jsw::sample::readRules(*root);
        loaded = true;
        return rules;
    } catch (const jsw::sample::RuleError& error) {
        jsw::sample::reportProblem(path, error.what());
        return {};
    }
}

}  // namespace

JswBool InitializeEngine(JswAllocate allocate, const InkInfo* inkInfo, const char* friendlyName,
                         const char* jobName, int32_t totalPages, int32_t totalCopies) {
    return answer<JswBool>([&](Run& started) {
        started = {};
        bool loaded = false;
        started.rules = loadRules(loaded);
        started.allocate = allocate;
        started.job = {inkInfo != nullptr ? *inkInfo : kInkNotKnown,
                       friendlyName == nullptr ? "" : friendlyName,
                       jobName == nullptr ? "" : jobName,
                       totalPages,
                       totalCopies,
                       jsw::sample::readShownCounts(started.rules)};
        return static_cast<JswBool>(loaded ? 1 : 0);
    });
}

JswBool IsMoreRules() {
    return answer<JswBool>([](const Run& current) {
        return static_cast<JswBool>(current.next < current.rules.size() ? 1 : 0);
    });
}

char* EvaluateRule() {
    return answer<char*>([](Run& current) -> char* {
        if (current.next >= current.rules.size()) return nullptr;
        const Rule& rule = current.rules[current.next++];
        return jsw::sample::applies(rule, current.job)
                   ? jsw::sample::returnedText(current.allocate, rule.result)
                   : nullptr;
    });
}

JswBool IsHistoryChecked() {
    return answer<JswBool>([](const Run& current) {
        const bool checked = current.next > 0 && current.rules[current.next - 1].historyChecked;
        return static_cast<JswBool>(checked ? 1 : 0);
    });
}

void UpdateSettings(const char* carts, JswBool inkBillboard, JswBool specialBillboard) {
    answer<bool>([&](const Run&) {
        jsw::sample::rememberShown(carts == nullptr ? "" : carts, inkBillboard != 0,
                                   specialBillboard != 0);
        return true;
    });
}

void UnInitialize() {
    answer<bool>([](Run& finished) {
        finished = {};
        return true;
    });
}
