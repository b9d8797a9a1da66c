#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace jsw::bench {

/// How long one step took, in nanoseconds, over all rounds.
struct Timing {
    double min = 0;
    double median = 0;
};

/// Something whose time is taken: does its step so many times.
using Work = std::function<void(std::uint32_t steps)>;

template <class Step>
Work repeated(Step step) {
    return [step = std::move(step)](std::uint32_t steps) mutable {
        for (std::uint32_t i = 0; i < steps; ++i) step();
    };
}

/// How often: rounds of so many steps each.
struct Effort {
    std::uint32_t rounds;
    std::uint32_t steps;
};

/// Nanoseconds that a piece of work takes once.
double timeOnce(const std::function<void()>& work);

Timing summary(std::vector<double> samples);

/// Times the works in turns, so that what disturbs the machine disturbs all of them. The first
/// round, in which caches fill, does not count.
std::vector<Timing> timeInTurns(std::span<const Work> works, const Effort& effort);

}  // namespace jsw::bench
