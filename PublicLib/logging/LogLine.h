#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace jsw {

/// Local time of a log line.
struct LogTime {
    unsigned year, month, day, hour, minute, second, millisecond;
};

/// The parts before a log line's text; those that are not set are omitted.
struct LogHeader {
    std::optional<LogTime> time;
    std::optional<std::uint32_t> processId;
    std::optional<std::uint32_t> threadId;
    std::string_view component;
    unsigned componentWidth = 0;  ///< columns; a longer name is not cut
    unsigned depth = 0;           ///< blanks before the text
};

/// "YYYY/MM/DD-HH:MM:SS.mmm pid=…… tid=…… component  text", without an end of line.
std::string formatLogLine(const LogHeader& header, std::string_view text);

}  // namespace jsw
