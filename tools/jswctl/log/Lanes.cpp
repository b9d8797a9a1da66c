#include "tools/jswctl/log/Lanes.h"

#include <algorithm>
#include <utility>

namespace jsw::ctl::log {

namespace {

constexpr std::size_t kMaxRows = 8;  // deeper calls are not shown

/// From a thread's first call to the end of its last.
struct Life {
    bool busy = false;
    Milliseconds start = 0;
    Milliseconds end = 0;

    void add(const Call& call) {
        if (!busy) start = *call.start.time;
        end = std::max(busy ? end : start, *call.start.time + call.duration);
        busy = true;
    }
};

/// Threads by lane.
std::vector<std::vector<std::size_t>> group(const LoggedJob& job, const std::vector<Life>& lives) {
    std::vector<std::vector<std::size_t>> groups;
    for (std::size_t thread = 0; thread < job.threads.size(); ++thread) {
        const auto takesIn = [&](const std::vector<std::size_t>& one) {
            const Life& before = lives[one.back()];
            const Life& life = lives[thread];
            return job.threads[one.front()].name == kViewThread &&
                   (!before.busy || !life.busy || before.end <= life.start);
        };
        const auto known = job.threads[thread].name == kViewThread
                               ? std::find_if(groups.begin(), groups.end(), takesIn)
                               : groups.end();
        if (known == groups.end()) {
            groups.push_back({thread});
        } else {
            known->push_back(thread);
        }
    }
    return groups;
}

std::vector<unsigned> depthsOf(const LaneThreads& lane, const std::vector<const Call*>& calls) {
    std::vector<unsigned> depths;
    for (const Call* call : calls) {
        if (lane.has(call->thread)) depths.push_back(call->depth);
    }
    std::sort(depths.begin(), depths.end());
    depths.erase(std::unique(depths.begin(), depths.end()), depths.end());
    if (depths.size() > kMaxRows) depths.resize(kMaxRows);
    if (depths.empty()) depths.push_back(0);  // it has written lines
    return depths;
}

}  // namespace

bool LaneThreads::has(std::size_t thread) const {
    return std::find(threads.begin(), threads.end(), thread) != threads.end();
}

std::vector<LaneThreads> shareOut(const LoggedJob& job, const std::vector<const Call*>& calls) {
    std::vector<Life> lives(job.threads.size());
    for (const Call* call : calls) lives[call->thread].add(*call);
    std::vector<LaneThreads> lanes;
    for (auto& threads : group(job, lives)) {
        LaneThreads lane{std::move(threads), {}};
        lane.depths = depthsOf(lane, calls);
        lanes.push_back(std::move(lane));
    }
    return lanes;
}

}  // namespace jsw::ctl::log
