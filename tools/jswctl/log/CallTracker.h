#pragma once

#include "tools/jswctl/log/LogLine.h"
#include "tools/jswctl/log/LoggedJob.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::ctl::log {

/// Follows the traced methods of one process: assigns each line to its thread and reports the calls
/// that have ended. It distinguishes threads by the ids in the lines or, without ids, by the lines'
/// depth and by what only one thread does.
class CallTracker {
  public:
    /// A method that is running.
    struct Frame {
        std::string tag;  ///< its beginning
        Place start;
        unsigned depth = 0;
        Milliseconds inner = 0;  ///< spent in inner calls
    };

    /// Assigns a line to its thread and adds the calls that it ends to `ended`.
    /// @return the thread, as an index into threads()
    std::size_t add(const LogLine& line, std::uint64_t number, std::vector<Call>& ended);

    /// Ends the calls that are still open at the end of the log.
    void endAll(const Place& place, std::vector<Call>& ended);

    const std::vector<ThreadInfo>& threads() const { return infos_; }

    /// Whether a method of this name is running on the thread.
    bool isInside(std::size_t thread, std::string_view method) const;

  private:
    struct Thread {
        std::vector<Frame> stack;
        std::uint64_t lastLine = 0;
    };

    std::size_t threadFor(const LogLine& line, TextKind kind);
    std::size_t threadWithId(std::uint32_t id);
    std::size_t guessThread(const LogLine& line, TextKind kind);
    std::size_t guessForEntry(const LogLine& line);
    std::size_t addThread(std::string name, std::optional<std::uint32_t> id);
    void enter(std::size_t thread, const LogLine& line, const Place& place,
               std::vector<Call>& ended);
    void leave(std::size_t thread, const LogLine& line, const Place& place,
               std::vector<Call>& ended);
    void pop(std::size_t thread, const Place& place, std::string result, bool returned,
             std::vector<Call>& ended);

    std::vector<Thread> threads_;
    std::vector<ThreadInfo> infos_;
};

}  // namespace jsw::ctl::log
