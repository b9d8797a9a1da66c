#pragma once

#include "tools/jswctl/log/JobBuilder.h"
#include "tools/jswctl/log/LogLine.h"

#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace jsw::ctl::log {

/// A line that is no line of a log, such as one of another program, the rest of a text with line
/// breaks in it, or what a writer that was killed has left.
struct ForeignLine {
    std::uint64_t number;
    std::string text;  ///< the beginning of it
};

/// What a file is made of.
struct Totals {
    std::uint64_t bytes = 0;
    std::uint64_t lines = 0;            ///< in the file
    std::uint64_t logLines = 0;         ///< lines of a log in it; a torn line may hold two
    std::uint64_t foreign = 0;          ///< lines, or parts of lines, that are none
    std::uint64_t torn = 0;             ///< lines with another one begun inside
    std::uint64_t cut = 0;              ///< lines that are too long to be read whole
    std::uint64_t backwards = 0;        ///< lines that are older than the one before
    std::vector<ForeignLine> examples;  ///< the first few foreign lines
    bool endsInLine = false;            ///< the last line has no end
    bool gaveUp = false;                ///< no log line at the beginning: the rest was not read
    std::uint64_t withTime = 0;
    std::uint64_t withProcessId = 0;
    std::uint64_t withThreadId = 0;
    std::uint64_t processes = 0;  ///< with ids of their own
    std::uint64_t jobs = 0;
    bool hasTraces = false;             ///< not only messages, as while the log is switched off
    std::optional<Milliseconds> first;  ///< the earliest time
    std::optional<Milliseconds> last;   ///< the latest time

    bool isLog() const { return logLines != 0; }
};

/// Reads a log of any size in bounded memory and tells the listener what is in it, job by job as
/// they end. A file that has no log line in its first megabyte is not read further.
/// @param input  opened in binary mode
Totals readLog(std::istream& input, JobListener& listener);

}  // namespace jsw::ctl::log
