#pragma once

#include "tools/jswctl/log/KnownTexts.h"
#include "tools/jswctl/log/LogLine.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a log tells of a job. Plain data; made by JobBuilder, told by the reports.
namespace jsw::ctl::log {

/// Where in the log something stands.
struct Place {
    std::uint64_t line = 0;  ///< counted from 1
    std::optional<Milliseconds> time;
};

/// One traced call of a method that has come to its end, or that the log leaves open.
struct Call {
    std::string name;  ///< "Catalog::getBillboardType"
    std::string result;
    Place start;
    Milliseconds duration = 0;  ///< 0 while the lines have no times
    Milliseconds own = 0;       ///< without the calls inside it
    std::size_t thread = 0;     ///< index into Job::threads
    unsigned depth = 0;
    bool returned = true;  ///< false: the log has no end of it
};

/// What threads are for. A view may call back on a new thread each time.
inline constexpr std::string_view kDriverThread = "driver";
inline constexpr std::string_view kRulesThread = "rules";
inline constexpr std::string_view kViewThread = "view";

/// A thread of the host's process that wrote lines.
struct ThreadInfo {
    std::string name;                 ///< one of the above
    std::optional<std::uint32_t> id;  ///< absent: told apart by what the lines say
};

/// One sentence of a job's story.
struct Event {
    Place place;
    std::string sentence;
};

/// A line that tells of trouble, and how often such a line came.
struct Finding {
    const KnownText* known = nullptr;  ///< never null
    std::string subject;               ///< whom it is about, such as a module's file
    std::string line;                  ///< the text of the first one
    Place first;
    std::size_t thread = 0;
    std::uint64_t count = 1;
};

/// From the building of the library's objects to their end, or what of it is in the log.
struct Job {
    std::uint64_t number = 0;  ///< in this log, counted from 1; 0: lines that belong to no job
    std::optional<std::uint32_t> processId;
    Place first;
    Place last;
    std::uint64_t lines = 0;

    bool begun = false;       ///< JSWInit is in the log
    bool terminated = false;  ///< JSWTerminate is in the log
    bool tornDown = false;    ///< the objects are gone: the log has all of the job
    std::string printer;
    std::string name;
    std::string pages;
    std::string copies;
    std::vector<std::string> history;  ///< billboards shown before, the oldest first
    std::uint64_t progressReports = 0;
    std::string choice;  ///< which billboard was chosen and why; empty: the log says nothing

    std::vector<Event> story;
    std::uint64_t untold = 0;  ///< events beyond the limit
    std::vector<Finding> findings;
    std::vector<ThreadInfo> threads;
    std::vector<Call> calls;
    std::uint64_t callsLeftOut = 0;  ///< short ones beyond the limit

    /// Whole milliseconds from the first line to the last; nothing while the lines have no times.
    std::optional<Milliseconds> duration() const {
        if (!first.time || !last.time || *last.time < *first.time) return std::nullopt;
        return *last.time - *first.time;
    }
};

}  // namespace jsw::ctl::log
