// A rules engine module that answers at once, with one rule, and signals the end of the rules to
// the measuring program.

#include "bench/modules/RulesEnd.h"
#include <jsw/rules.h>

#include <windows.h>

#include <cstring>

JSW_RULES_ENTRY_POINTS(JSW_MODULE_DECLARE)

namespace {

JswAllocate allocate = nullptr;
bool isAsked = false;

}  // namespace

extern "C" {

JswBool InitializeEngine(JswAllocate function, const InkInfo*, const char*, const char*, int32_t,
                         int32_t) {
    allocate = function;
    isAsked = false;
    return 1;
}

JswBool IsMoreRules() {
    return !isAsked;
}

char* EvaluateRule() {
    isAsked = true;
    constexpr char kRule[] = "TIP";
    auto* result = static_cast<char*>(allocate(sizeof(kRule)));
    std::memcpy(result, kRule, sizeof(kRule));
    return result;
}

JswBool IsHistoryChecked() {
    return 1;
}

void UpdateSettings(const char*, JswBool, JswBool) {
}

void UnInitialize() {
    SetEvent(jsw::bench::rulesEndEvent());
}
}
