#pragma once

#include "tools/jswctl/log/Job.h"

#include <cstddef>
#include <vector>

namespace jsw::ctl::log {

/// What a lane of a picture shows: one thread, or several that did the same one after the other.
struct LaneThreads {
    std::vector<std::size_t> threads;  ///< indexes into Job::threads, one or more
    std::vector<unsigned> depths;      ///< of its rows, from the top down, one or more

    bool has(std::size_t thread) const;
};

/// Shares the threads of a job out to lanes. The threads on which a view calls back, which may be a
/// new one each time, share a lane as long as none is still busy.
/// @param calls  with times, by their start
std::vector<LaneThreads> shareOut(const Job& job, const std::vector<const Call*>& calls);

}  // namespace jsw::ctl::log
