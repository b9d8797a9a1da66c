#pragma once

#include "tools/jswctl/log/LoggedJob.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jsw::ctl::log {

/// The module that a traced method calls: "view", "catalog", "rules engine" or "older window";
/// empty for methods that stay inside the library.
std::string_view moduleOf(std::string_view method);

/// All calls of one method. Times exclude inner calls.
struct CallTotals {
    std::string name;
    std::uint64_t count = 0;
    Milliseconds total = 0;
    Milliseconds longest = 0;
    std::uint64_t longestLine = 0;  ///< line of the longest one
};

/// One of the slowest calls.
struct SlowCall {
    Call call;
    std::uint64_t job = 0;  ///< 0: outside any job
};

/// A problem in the whole log.
struct TroubleTotals {
    Problem problem;         ///< the first one, with the count of all
    std::uint64_t jobs = 0;  ///< in which it occurs
};

/// Statistics of all jobs of a log, in bounded memory.
class Statistics {
  public:
    void add(const Call& call, const LoggedJob& job);
    void add(const LoggedJob& job);

    /// Calls into modules, longest total time first.
    std::vector<CallTotals> moduleCalls() const;
    /// The ten slowest calls, slowest first; none below a millisecond.
    const std::vector<SlowCall>& slowest() const { return slowest_; }
    /// Those that stop something first, then in the log's order.
    std::vector<TroubleTotals> troubles() const;
    /// Whether a problem stops something.
    bool isAnythingStopped() const;
    /// Lines outside any job.
    std::uint64_t linesOutside() const { return linesOutside_; }

  private:
    std::map<std::string, CallTotals, std::less<>> calls_;
    std::vector<SlowCall> slowest_;
    std::map<std::pair<const KnownText*, std::string>, TroubleTotals> troubles_;
    std::uint64_t linesOutside_ = 0;
};

}  // namespace jsw::ctl::log
