#include "tools/jswctl/log/Choice.h"

#include "PublicLib/text/Text.h"
#include "tools/jswctl/log/Pattern.h"

#include <utility>

namespace jsw::ctl::log {

namespace {

constexpr std::size_t kMaxNamed = 20;  // candidates that are named

}  // namespace

void Choice::add(std::string_view text, bool onRules) {
    Captures part;
    const auto is = [&](std::string_view pattern) { return matches(pattern, text, part); };
    if (is("+Controller::ProcessRules: ") || is(">>> Controler::ProcessRules: ")) {
        rulesRan_ = true;
    } else if (is("Controller::ProcessRules: ERROR - Unable to initialize the rules engine.{}")) {
        engineFailed_ = true;
    } else if (is("-RulesEngine::evaluateRule:  rc={}")) {
        asked_ = part[0];
    } else if (onRules && is("-Catalog::getBillboardType: {}")) {
        learnType(part[0]);
    } else if (is("Controller::ProcessRules: Rule result is ProjectId={}, checkHistory={}")) {
        nameRule(part[0]);
        candidates_.emplace_back(part[0]);
    } else if (is("Controller::ProcessRules: Rule result is CategoryId={}, checkHistory={}")) {
        nameRule(part[0]);
        isCategory_ = true;
    } else if (is("Controller::ProcessRules: ProjectId={} was in History (failed history "
                  "check).")) {
        passOver(part[0], "shown before");
    } else if (is("Controller::ProcessRules: WARNING:  Billboard id='{}' not valid. Billboard is "
                  "being bypassed.")) {
        passOver(part[0], "its page cannot be shown");
    } else if (is("Controller::ProcessRules: ProjectId={}")) {
        if (candidates_.size() < kMaxNamed) candidates_.emplace_back(part[0]);
    } else if (is("Controller::ProcessRules: Should show the billboard, showSpecial={} "
                  "isInkType={}isStandardType={}")) {
        shown_ = true;
        type_ = part[1] == "true" ? "an ink" : part[2] == "true" ? "a standard" : "a special";
    } else if (onRules && is("Controller::changeBillboard: bbId ='{}'")) {
        billboard_ = part[0];
    } else if (onRules && is("BillboardView::displayBillboard: billboard= '{}' "
                             "enableBillboardNavigation={} restoreWindow={}")) {
        page_ = part[0];
    }
}

/// A result that is an ink status page does not choose the job's billboard.
void Choice::learnType(std::string_view exit) {
    const std::string asked = std::exchange(asked_, {});
    if (!asked.empty() && !equalsIgnoringCase(exit, " rc=ink_status")) nameRule(asked);
}

/// The call's trace and the rules' own line contain the same result.
void Choice::nameRule(std::string_view result) {
    asked_.clear();
    if (result == rule_ && candidates_.empty()) return;
    rule_ = result;
    isCategory_ = false;
    candidates_.clear();
    passedOverOfRule_ = 0;
}

void Choice::passOver(std::string_view id, const char* why) {
    ++passedOverOfRule_;
    if (passedOver_.size() < kMaxNamed) passedOver_.push_back({std::string(id), why});
}

std::string Choice::inWords() const {
    if (!rulesRan_) return {};
    if (engineFailed_) return "none: the rules engine did not start; the default page stays";
    if (rule_.empty()) return "none: no rule applies to this job; the default page stays";
    if (shown_) {
        const std::string page = page_.empty() ? "" : concat(" (page ", page_, ")");
        return concat("\"", billboard_.empty() ? rule_ : billboard_, "\"", page, ", ", type_,
                      " billboard: ", reason());
    }
    if (candidates_.size() > passedOverOfRule_) {
        return concat("none: ", reason(),
                      "; it is a special billboard, and the user has switched these off");
    }
    return concat("none: ", reason(), "; the default page stays");
}

std::string Choice::reason() const {
    const std::string what = isCategory_ ? "the category \"" : "\"";
    return concat("the rules named ", what, rule_, "\"", passedOverInWords());
}

std::string Choice::passedOverInWords() const {
    std::string words;
    for (const PassedOver& one : passedOver_) {
        words += concat(words.empty() ? "; skipped: " : ", ", "\"", one.id, "\" (", one.why, ")");
    }
    return words;
}

}  // namespace jsw::ctl::log
