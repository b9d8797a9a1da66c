#pragma once

#include "tools/jswctl/log/CallTracker.h"
#include "tools/jswctl/log/Choice.h"
#include "tools/jswctl/log/Job.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace jsw::ctl::log {

/// Takes what a log tells.
class JobListener {
  public:
    virtual ~JobListener() = default;
    /// A call has come to its end. The job is not complete yet.
    virtual void onCall(const Call& call, const Job& job) = 0;
    /// A job has come to its end, or the log says no more of it.
    virtual void onJob(const Job& job) = 0;
};

/// Makes jobs of the lines of one process. What it keeps of a job is bounded.
class JobBuilder {
  public:
    /// @param listener   must outlive the builder
    /// @param jobNumber  counts the jobs of the whole log
    JobBuilder(std::optional<std::uint32_t> processId, JobListener& listener,
               std::uint64_t& jobNumber);

    void add(const LogLine& line, std::uint64_t number);
    /// Ends the job, when there is one: the log says no more of it.
    void finish();

    /// The number of the last line.
    std::uint64_t lastLine() const { return job_.last.line; }

  private:
    /// The lines that begin a job, in the order in which they are written.
    enum class Begin { none, entry, parameters, marker };

    static Begin beginOf(const LogLine& line);
    void startAnew(const LogLine& line, Begin begin);
    void note(const LogLine& line, const Place& place, std::size_t thread);
    void noteParameters(std::string_view text);
    void noteEnd(const LogLine& line, const Place& place);
    void tellEvent(const Place& place, const std::string& sentence);
    void find(const LogLine& line, const Place& place, std::size_t thread);
    void takeCalls(std::vector<Call>& ended);
    void leaveShortCallsOut();

    std::optional<std::uint32_t> processId_;
    JobListener& listener_;
    std::uint64_t& jobNumber_;
    Job job_;
    CallTracker calls_;
    Choice choice_;
    Begin begin_ = Begin::none;
    Milliseconds shortest_ = 0;  ///< calls shorter than this are left out by now
};

}  // namespace jsw::ctl::log
