// The choice of the job's billboard: see Controller.h.

#include "PublicLib/errors/Exception.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/text/Text.h"
#include "jsw/Controller.h"
#include "jsw/History.h"
#include "jsw/modules/Catalog.h"
#include "jsw/modules/RulesEngine.h"

#include <windows.h>

namespace jsw {

namespace {

constexpr char kTag[] = "Controller::ProcessRules: ";
constexpr int kManyResults = 1000;

void logCandidates(const std::string& ruleResult, const std::vector<std::string>& candidates,
                   bool checkHistory) {
    if (!isLogEnabled(component::kJsw, kLogRules)) return;
    if (candidates.size() < 2) {
        logLine(component::kJsw, kLogRules, kTag, "Rule result is ProjectId=", ruleResult,
                ", checkHistory=", checkHistory);
        return;
    }
    logLine(component::kJsw, kLogRules, kTag, "Rule result is CategoryId=", ruleResult,
            ", checkHistory=", checkHistory);
    for (const std::string& candidate : candidates) {
        logLine(component::kJsw, kLogRules, kTag, "ProjectId=", candidate);
    }
}

void logBypassed(MethodTrace& trace, const std::string& bbId) {
    trace.add("WARNING:  Billboard id='", bbId, "' not valid. Billboard is being bypassed.");
}

}  // namespace

/// What one run of the rules has come to.
struct Controller::RuleOutcome {
    MethodTrace& trace;
    std::shared_ptr<Catalog> catalog;
    std::shared_ptr<History> history;
    bool found = false;
    std::string chosenId{};
    /// While rules are asked: the last result was an ink status page. Then: an ink billboard.
    bool isInkType = false;
    bool showSpecial = false;
    std::string carts{};  ///< of the chosen billboard, for ink billboards
};

/// Tells the watch, at its end, that the rules thread has left the last module. The driver may have
/// ended the job meanwhile: the watch may end it now, and let go of the controller.
class Controller::RulesRun {
  public:
    explicit RulesRun(JobWatch* watch) : watch_(watch) {}
    ~RulesRun() {
        if (watch_ != nullptr) watch_->rulesEnd();
    }
    RulesRun(const RulesRun&) = delete;
    RulesRun& operator=(const RulesRun&) = delete;

  private:
    JobWatch* watch_;
};

void Controller::ProcessRules() {
    const RulesRun run(watch_);
    const std::shared_ptr<Controller> self = weak_from_this().lock();
    if (self) chooseBillboard();  // else it is over already
}

void Controller::chooseBillboard() {
    MethodTrace trace(component::kJsw, kTag);
    logLine(component::kJsw, kLogModuleCall, ">>> Controler::ProcessRules: ");
    RulesEngine engine;
    RuleOutcome outcome{trace, Catalog::instance(), History::instance()};
    if (!engine.initialize(inkInfo_, jobPrinterName_, jobName_, totalPages_, totalCopies_)) {
        trace.add("ERROR - Unable to initialize the rules engine. NOT processing rules!!!");
        engine.uninitialize();
        return;
    }
    try {
        runRules(engine, outcome);
        if (outcome.found) showChosen(outcome);
    } catch (const Win32Exception& error) {
        logLine(component::kJsw, kLogError, error.text());
    }
    engine.updateSettings(outcome.carts, outcome.isInkType,
                          outcome.showSpecial && outcome.found && !outcome.isInkType);
    engine.uninitialize();
    logLine(component::kJsw, kLogModuleCall, "<<< Controler::ProcessRules: ");
}

void Controller::runRules(RulesEngine& engine, RuleOutcome& outcome) {
    int results = 0;
    while (engine.isMoreRules() && !stop_ && !outcome.found) {
        // An engine that never comes to an end must not take a processor.
        if (++results > kManyResults) Sleep(1);
        const std::string ruleResult = engine.evaluateRule();
        if (!ruleResult.empty()) processRule(engine, ruleResult, outcome);
    }
}

void Controller::processRule(RulesEngine& engine, const std::string& ruleResult,
                             RuleOutcome& outcome) {
    const std::string type = outcome.catalog->getBillboardType(ruleResult);
    outcome.isInkType = equalsIgnoringCase(type, "ink_status");
    if (outcome.isInkType) {
        if (isBillboardIdValid(ruleResult)) {
            texts_.setInkStatusId(ruleResult);
        } else {
            logBypassed(outcome.trace, ruleResult);
        }
        return;
    }
    std::vector<std::string> candidates;
    outcome.catalog->getBillboardIds(ruleResult, candidates);
    if (candidates.empty()) candidates.push_back(ruleResult);
    const bool checkHistory = engine.isHistoryChecked();
    logCandidates(ruleResult, candidates, checkHistory);
    chooseCandidate(candidates, checkHistory, outcome);
}

/// The first valid candidate wins.
void Controller::chooseCandidate(const std::vector<std::string>& candidates, bool checkHistory,
                                 RuleOutcome& outcome) {
    for (const std::string& candidate : candidates) {
        if (checkHistory && outcome.history->isPresentInHistory(candidate)) {
            logLine(component::kJsw, kLogRules, kTag, "ProjectId=", candidate,
                    " was in History (failed history check).");
        } else if (isBillboardIdValid(candidate)) {
            outcome.found = true;
            outcome.chosenId = candidate;
            return;
        } else {
            logBypassed(outcome.trace, candidate);
        }
    }
}

void Controller::showChosen(RuleOutcome& outcome) {
    const std::string type = outcome.catalog->getBillboardType(outcome.chosenId);
    outcome.showSpecial = view_->showSpecialMessages();
    outcome.isInkType = equalsIgnoringCase(type, "ink");
    const bool isStandardType = equalsIgnoringCase(type, "standard");
    if (!outcome.showSpecial && !outcome.isInkType && !isStandardType) return;
    outcome.trace.add("Should show the billboard, showSpecial=", outcome.showSpecial,
                      " isInkType=", outcome.isInkType, "isStandardType=", isStandardType);
    changeBillboard(outcome.chosenId);
    if (outcome.isInkType) {
        outcome.carts = outcome.catalog->getCarts(outcome.chosenId);
    } else if (!isStandardType) {
        outcome.history->add(outcome.chosenId);
    }
}

}  // namespace jsw
