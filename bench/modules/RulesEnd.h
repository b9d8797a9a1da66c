#pragma once

#include <windows.h>

#include <cstdlib>

namespace jsw::bench {

/// Names the environment variable that holds the handle of the event, as a number.
inline constexpr char kRulesEndVariable[] = "JSW_BENCH_RULES_END";

/// Set when the rules of a job have come to their end.
inline HANDLE rulesEndEvent() {
    char number[32] = "0";
    GetEnvironmentVariableA(kRulesEndVariable, number, sizeof(number));
    return reinterpret_cast<HANDLE>(std::strtoull(number, nullptr, 10));  // NOLINT
}

}  // namespace jsw::bench
