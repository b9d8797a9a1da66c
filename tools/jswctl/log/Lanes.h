#pragma once

#include "tools/jswctl/log/LoggedJob.h"

#include <cstddef>
#include <vector>

namespace jsw::ctl::log {

/// The threads of a lane: one, or several with the same purpose, one after the other.
struct LaneThreads {
    std::vector<std::size_t> threads;  ///< indexes into LoggedJob::threads, one or more
    std::vector<unsigned> depths;      ///< of its rows, top row first, one or more

    bool has(std::size_t thread) const;
};

/// Assigns the threads of a job to lanes. A view's callback threads, of which there may be many,
/// share a lane while they do not overlap.
/// @param calls  with times, ordered by start
std::vector<LaneThreads> shareOut(const LoggedJob& job, const std::vector<const Call*>& calls);

}  // namespace jsw::ctl::log
