#pragma once

#include "tools/jswctl/log/KnownTexts.h"
#include "tools/jswctl/log/LogLine.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A job in a log. Plain data, built by JobBuilder and shown by the reports.
namespace jsw::ctl::log {

/// A position in the log.
struct Place {
    std::uint64_t line = 0;  ///< counted from 1
    std::optional<Milliseconds> time;
};

/// One traced call of a method that has ended, or that the log leaves open.
struct Call {
    std::string name;  ///< "Catalog::getBillboardType"
    std::string result;
    Place start;
    Milliseconds duration = 0;  ///< 0 if the lines have no times
    Milliseconds own = 0;       ///< without the calls inside it
    std::size_t thread = 0;     ///< index into LoggedJob::threads
    unsigned depth = 0;
    bool returned = true;  ///< false: its end is not in the log
};

/// The purposes of threads. A view may call back on a new thread each time.
inline constexpr std::string_view kDriverThread = "driver";
inline constexpr std::string_view kRulesThread = "rules";
inline constexpr std::string_view kViewThread = "view";

/// A thread of the host's process that wrote lines.
struct ThreadInfo {
    std::string name;                 ///< one of the above
    std::optional<std::uint32_t> id;  ///< absent: distinguished by the lines' contents
};

/// One sentence of a job's story.
struct Event {
    Place place;
    std::string sentence;
};

/// A problem line and its number of occurrences.
struct Problem {
    const KnownText* known = nullptr;  ///< never null
    std::string subject;               ///< its subject, such as a module's file
    std::string line;                  ///< the text of the first one
    Place first;
    std::size_t thread = 0;
    std::uint64_t count = 1;
};

/// From the construction of the library's objects to their teardown, as far as it is in the log.
struct LoggedJob {
    std::uint64_t number = 0;  ///< in this log, from 1; 0: lines outside any job
    std::optional<std::uint32_t> processId;
    Place first;
    Place last;
    std::uint64_t lines = 0;

    bool begun = false;       ///< JSWInit is in the log
    bool terminated = false;  ///< JSWTerminate is in the log
    bool tornDown = false;    ///< the teardown is in the log: the job is complete
    std::string printer;
    std::string name;
    std::string pages;
    std::string copies;
    std::vector<std::string> history;  ///< billboards shown before, the oldest first
    std::uint64_t progressReports = 0;
    std::string choice;  ///< which billboard was chosen and why; empty: unknown

    std::vector<Event> story;
    std::uint64_t untold = 0;  ///< events beyond the limit
    std::vector<Problem> problems;
    std::vector<ThreadInfo> threads;
    std::vector<Call> calls;
    std::uint64_t callsLeftOut = 0;  ///< short ones beyond the limit

    /// Milliseconds from the first line to the last; nothing if the lines have no times.
    std::optional<Milliseconds> duration() const {
        if (!first.time || !last.time || *last.time < *first.time) return std::nullopt;
        return *last.time - *first.time;
    }
};

}  // namespace jsw::ctl::log
