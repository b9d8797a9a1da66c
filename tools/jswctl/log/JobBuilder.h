#pragma once

#include "tools/jswctl/log/CallTracker.h"
#include "tools/jswctl/log/Choice.h"
#include "tools/jswctl/log/LoggedJob.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace jsw::ctl::log {

/// Gets the contents of a log.
class JobListener {
  public:
    virtual ~JobListener() = default;
    /// A call has ended. The job is not complete yet.
    virtual void onCall(const Call& call, const LoggedJob& job) = 0;
    /// A job has ended, or the log has.
    virtual void onJob(const LoggedJob& job) = 0;
};

/// Builds jobs from the lines of one process, in bounded memory.
class JobBuilder {
  public:
    /// @param listener   must outlive the builder
    /// @param jobNumber  counts the jobs of the whole log
    JobBuilder(std::optional<std::uint32_t> processId, JobListener& listener,
               std::uint64_t& jobNumber);

    void add(const LogLine& line, std::uint64_t number);
    /// Ends the present job, if any, at the end of the log.
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
    LoggedJob job_;
    CallTracker calls_;
    Choice choice_;
    Begin begin_ = Begin::none;
    Milliseconds shortest_ = 0;  ///< shorter calls are dropped
};

}  // namespace jsw::ctl::log
