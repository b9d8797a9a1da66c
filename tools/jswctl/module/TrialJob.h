#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace jsw::ctl {

class Command;

/// The job that a tested module gets.
struct TrialJob {
    std::string printer = "jswctl";
    std::string name = "jswctl";
    std::int32_t pages = 1;
    std::int32_t copies = 1;
    std::vector<std::int32_t> ink;     ///< per cent, slot by slot; missing ones are unknown
    std::string dataFolder = ".";      ///< for a view
    unsigned shownMilliseconds = 500;  ///< of its window
};

/// Adds the options that set it, also for the trial's process.
void addJobOptions(Command& command, TrialJob& job);

/// The job in one sentence.
std::string jobInWords(const TrialJob& job);

}  // namespace jsw::ctl
