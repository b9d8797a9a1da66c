#pragma once

#include "tools/jswctl/log/Job.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jsw::ctl::log {

/// Which module a traced method calls into: "view", "catalog", "rules engine" or "older window";
/// empty for methods that stay in the library.
std::string_view moduleOf(std::string_view method);

/// All calls of one method. Times are those of the method itself, without the calls inside it.
struct CallTotals {
    std::string name;
    std::uint64_t count = 0;
    Milliseconds total = 0;
    Milliseconds longest = 0;
    std::uint64_t longestLine = 0;  ///< where the longest one begins
};

/// One of the slowest calls.
struct SlowCall {
    Call call;
    std::uint64_t job = 0;  ///< 0: in no job
};

/// A trouble over the whole log.
struct TroubleTotals {
    Finding finding;         ///< the first one, with the count of all
    std::uint64_t jobs = 0;  ///< in which it came
};

/// What all jobs of a log have in common. What it keeps is bounded.
class Statistics {
  public:
    void add(const Call& call, const Job& job);
    void add(const Job& job);

    /// Calls into modules, those that took most time first.
    std::vector<CallTotals> moduleCalls() const;
    /// The ten slowest calls, the slowest first; none that took less than a millisecond.
    const std::vector<SlowCall>& slowest() const { return slowest_; }
    /// What stops something first, then in the order of the log.
    std::vector<TroubleTotals> troubles() const;
    /// Whether there is a trouble that stops something.
    bool isAnythingStopped() const;
    /// Lines that belong to no job.
    std::uint64_t linesOutside() const { return linesOutside_; }

  private:
    std::map<std::string, CallTotals, std::less<>> calls_;
    std::vector<SlowCall> slowest_;
    std::map<std::pair<const KnownText*, std::string>, TroubleTotals> troubles_;
    std::uint64_t linesOutside_ = 0;
};

}  // namespace jsw::ctl::log
