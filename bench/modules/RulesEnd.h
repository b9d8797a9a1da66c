#pragma once

#include <windows.h>

#include <cstdlib>

namespace jsw::bench {

/// The environment variable with the event's handle as a number.
inline constexpr char kRulesEndVariable[] = "JSW_BENCH_RULES_END";

/// Set when all rules of a job have been processed.
inline HANDLE rulesEndEvent() {
    char number[32] = "0";
    GetEnvironmentVariableA(kRulesEndVariable, number, sizeof(number));
    return reinterpret_cast<HANDLE>(std::strtoull(number, nullptr, 10));  // NOLINT
}

}  // namespace jsw::bench
