#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace jsw::bench {

/// The duration of one step in nanoseconds, over all rounds.
struct Timing {
    double low = 0;  ///< one round in fifty was faster
    double median = 0;
};

/// Work to measure: performs this number of steps.
using Work = std::function<void(std::uint32_t steps)>;

template <class Step>
Work repeated(Step step) {
    return [step = std::move(step)](std::uint32_t steps) mutable {
        for (std::uint32_t i = 0; i < steps; ++i) step();
    };
}

/// Rounds, and steps in each.
struct Effort {
    std::uint32_t rounds;
    std::uint32_t steps;
};

/// The duration of one execution in nanoseconds.
double timeOnce(const std::function<void()>& work);

Timing summary(std::vector<double> samples);

/// Times the works in alternation, so that disturbances affect all of them. Ignores the first
/// round, in which caches fill.
std::vector<Timing> timeInTurns(std::span<const Work> works, const Effort& effort);

}  // namespace jsw::bench
