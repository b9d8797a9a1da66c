#include "jsw/BillboardChoice.h"

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

// Limits for an engine that never ends or keeps throwing.
constexpr int kMostRaises = 3;
constexpr int kResultsBetweenPauses = 100;
constexpr DWORD kPause = 10;  // milliseconds

/// One run of the rules and its outcome.
class BillboardChoice {
  public:
    BillboardChoice(MethodTrace& trace, Controller& controller, const BillboardView& view,
                    JobTexts& texts, const std::atomic<bool>& stop)
        : trace_(trace), controller_(controller), view_(view), texts_(texts), stop_(stop) {}

    void make(const Job& job);

  private:
    void runRules();
    void processRule(const std::string& ruleResult);
    void countRaise();
    void chooseCandidate(const std::vector<std::string>& candidates, bool checkHistory);
    void showChosen();
    void logBypassed(const std::string& bbId);

    MethodTrace& trace_;
    Controller& controller_;
    const BillboardView& view_;
    JobTexts& texts_;
    const std::atomic<bool>& stop_;
    RulesEngine engine_;
    std::shared_ptr<Catalog> catalog_ = Catalog::instance();
    std::shared_ptr<History> history_ = History::instance();

    int raises_ = 0;
    bool found_ = false;
    std::string chosenId_;
    /// During the run: the last result is an ink status page. Afterwards: an ink billboard is
    /// shown.
    bool isInkType_ = false;
    bool showSpecial_ = false;
    std::string carts_;  ///< of the chosen billboard, for ink billboards
};

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

void BillboardChoice::make(const Job& job) {
    if (!engine_.initialize(job.ink, job.friendlyName, job.jobName, job.totalPages,
                            job.totalCopies)) {
        trace_.add("ERROR - Unable to initialize the rules engine. NOT processing rules!!!");
        engine_.uninitialize();
        return;
    }
    try {
        runRules();
        if (found_) showChosen();
    } catch (const Win32Exception& error) {
        logLine(component::kJsw, kLogError, error.text());
    }
    engine_.updateSettings(carts_, isInkType_, showSpecial_ && found_ && !isInkType_);
    engine_.uninitialize();
    logLine(component::kJsw, kLogModuleCall, "<<< Controler::ProcessRules: ");
}

void BillboardChoice::runRules() {
    int results = 0;
    while (raises_ < kMostRaises && engine_.isMoreRules() && !stop_ && !found_) {
        if (++results % kResultsBetweenPauses == 0) Sleep(kPause);  // lets others run
        const std::string ruleResult = engine_.evaluateRule();
        countRaise();
        if (!ruleResult.empty()) processRule(ruleResult);
    }
    if (raises_ < kMostRaises) return;
    logLine(component::kRulesEngine, kLogError, "ERROR - ", raises_,
            " exceptions in one run of the rules. NO more rules are processed.");
}

/// Each exception is a line in the log, even with the log off.
void BillboardChoice::countRaise() {
    if (engine_.lastCall() == CallEnd::raised) ++raises_;
}

void BillboardChoice::processRule(const std::string& ruleResult) {
    isInkType_ = equalsIgnoringCase(catalog_->getBillboardType(ruleResult), "ink_status");
    if (isInkType_) {
        if (controller_.isBillboardIdValid(ruleResult)) {
            texts_.set(&JobText::inkStatusId, ruleResult);
        } else {
            logBypassed(ruleResult);
        }
        return;
    }
    std::vector<std::string> candidates;
    catalog_->getBillboardIds(ruleResult, candidates);
    if (candidates.empty()) candidates.push_back(ruleResult);
    const bool checkHistory = engine_.isHistoryChecked();
    countRaise();
    logCandidates(ruleResult, candidates, checkHistory);
    chooseCandidate(candidates, checkHistory);
}

/// The first valid candidate wins.
void BillboardChoice::chooseCandidate(const std::vector<std::string>& candidates,
                                      bool checkHistory) {
    for (const std::string& candidate : candidates) {
        if (checkHistory && history_->isPresentInHistory(candidate)) {
            logLine(component::kJsw, kLogRules, kTag, "ProjectId=", candidate,
                    " was in History (failed history check).");
        } else if (controller_.isBillboardIdValid(candidate)) {
            found_ = true;
            chosenId_ = candidate;
            return;
        } else {
            logBypassed(candidate);
        }
    }
}

void BillboardChoice::showChosen() {
    const std::string type = catalog_->getBillboardType(chosenId_);
    showSpecial_ = view_.showSpecialMessages();
    isInkType_ = equalsIgnoringCase(type, "ink");
    const bool isStandardType = equalsIgnoringCase(type, "standard");
    if (!showSpecial_ && !isInkType_ && !isStandardType) return;
    trace_.add("Should show the billboard, showSpecial=", showSpecial_, " isInkType=", isInkType_,
               "isStandardType=", isStandardType);
    controller_.changeBillboard(chosenId_);
    if (isInkType_) {
        carts_ = catalog_->getCarts(chosenId_);
    } else if (!isStandardType) {
        history_->add(chosenId_);
    }
}

void BillboardChoice::logBypassed(const std::string& bbId) {
    trace_.add("WARNING:  Billboard id='", bbId, "' not valid. Billboard is being bypassed.");
}

}  // namespace

void chooseBillboard(const Job& job, Controller& controller, const BillboardView& view,
                     JobTexts& texts, const std::atomic<bool>& stop) {
    MethodTrace trace(component::kJsw, kTag);
    logLine(component::kJsw, kLogModuleCall, ">>> Controler::ProcessRules: ");
    BillboardChoice(trace, controller, view, texts, stop).make(job);
}

}  // namespace jsw
