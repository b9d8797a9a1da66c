// A rules engine module that answers from the test's script.

#include "PublicLib/text/Text.h"
#include "tests/job/Script.h"

#include <cstring>

JSW_RULES_ENTRY_POINTS(JSW_MODULE_DECLARE)

namespace {

using jsw::concat;
using jsw::test::script;

/// Null until the library passes its allocation function.
JswAllocate allocateFunction = nullptr;

void* allocate(std::size_t size) {
    return allocateFunction != nullptr ? allocateFunction(static_cast<int32_t>(size)) : nullptr;
}
std::size_t nextRule = 0;

}  // namespace

extern "C" {

JswBool InitializeEngine(JswAllocate function, const InkInfo* inkInfo, const char* friendlyName,
                         const char* jobName, int32_t totalPages, int32_t totalCopies) {
    allocateFunction = function;
    nextRule = 0;
    const int32_t firstPercent = inkInfo->InkPercent[0];
    script().rules.add(concat("InitializeEngine(", firstPercent, ",", friendlyName, ",", jobName,
                              ",", totalPages, ",", totalCopies, ")"));
    return script().engineStarts;
}

JswBool IsMoreRules() {
    return script().rulesNeverEnd || nextRule < script().ruleResults.size();
}

char* EvaluateRule() {
    script().rules.add("EvaluateRule()");
    if (script().onEvaluateRule) script().onEvaluateRule();
    const std::string result =
        nextRule < script().ruleResults.size() ? script().ruleResults[nextRule] : "";
    ++nextRule;
    if (result.empty()) return nullptr;
    auto* copy = static_cast<char*>(allocate(result.size() + 1));
    if (copy == nullptr) return nullptr;
    std::memcpy(copy, result.c_str(), result.size() + 1);
    return copy;
}

JswBool IsHistoryChecked() {
    return script().checkHistory;
}

void UpdateSettings(const char* carts, JswBool inkBillboard, JswBool specialBillboard) {
    script().rules.add(
        concat("UpdateSettings(", carts, ",", inkBillboard != 0, ",", specialBillboard != 0, ")"));
}

void UnInitialize() {
    script().rules.add("UnInitialize()");
}
}
