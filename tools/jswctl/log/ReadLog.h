#pragma once

#include "tools/jswctl/log/JobBuilder.h"
#include "tools/jswctl/log/LogLine.h"

#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace jsw::ctl::log {

/// A line that is not a log line: of another program, the rest of a text with line breaks, or the
/// remains of a killed writer.
struct ForeignLine {
    std::uint64_t number;
    std::string text;  ///< its beginning
};

/// Statistics of a file.
struct Totals {
    std::uint64_t bytes = 0;
    std::uint64_t lines = 0;            ///< in the file
    std::uint64_t logLines = 0;         ///< log lines; a torn line may contain two
    std::uint64_t foreign = 0;          ///< lines or parts of lines that are not log lines
    std::uint64_t torn = 0;             ///< lines with another one begun inside
    std::uint64_t cut = 0;              ///< lines that are too long to be read completely
    std::uint64_t backwards = 0;        ///< lines that are older than the one before
    std::vector<ForeignLine> examples;  ///< the first few foreign lines
    bool endsInLine = false;            ///< the last line is incomplete
    bool gaveUp = false;                ///< no log line at the beginning: the rest is unread
    std::uint64_t withTime = 0;
    std::uint64_t withProcessId = 0;
    std::uint64_t withThreadId = 0;
    std::uint64_t processes = 0;  ///< with an id
    std::uint64_t jobs = 0;
    bool hasTraces = false;             ///< has more than the messages of a log that is off
    std::optional<Milliseconds> first;  ///< the earliest time
    std::optional<Milliseconds> last;   ///< the latest time

    bool isLog() const { return logLines != 0; }
};

/// Reads a log of any size in bounded memory and passes each job to the listener when it ends.
/// Stops after the first megabyte if it has no log line.
/// @param input  opened in binary mode
Totals readLog(std::istream& input, JobListener& listener);

}  // namespace jsw::ctl::log
