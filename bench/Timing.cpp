#include "bench/Timing.h"

#include <algorithm>
#include <chrono>

namespace jsw::bench {

double timeOnce(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start)
        .count();
}

Timing summary(std::vector<double> samples) {
    std::sort(samples.begin(), samples.end());
    return {samples[samples.size() / 50], samples[samples.size() / 2]};
}

std::vector<Timing> timeInTurns(std::span<const Work> works, const Effort& effort) {
    std::vector<std::vector<double>> samples(works.size());
    for (std::uint32_t round = 0; round <= effort.rounds; ++round) {
        for (std::size_t i = 0; i < works.size(); ++i) {
            const double time = timeOnce([&] { works[i](effort.steps); }) / effort.steps;
            if (round > 0) samples[i].push_back(time);
        }
    }
    std::vector<Timing> timings;
    for (auto& one : samples) timings.push_back(summary(std::move(one)));
    return timings;
}

}  // namespace jsw::bench
