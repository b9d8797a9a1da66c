#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace jsw::ctl::log {

/// Milliseconds since 1970 of a clock that shows local time.
using Milliseconds = std::int64_t;

/// The parts of a log line. The texts point into the parsed line.
struct LogLine {
    std::optional<Milliseconds> time;        ///< absent while "Clocktime_In_Header" is 0
    std::optional<std::uint32_t> processId;  ///< absent while "Proc_Id_In_Header" is 0
    std::optional<std::uint32_t> threadId;   ///< absent while "Thread_Id_In_Header" is 0
    std::string_view component;              ///< "JSW", "Catalog", …
    unsigned depth = 0;                      ///< blanks before the text
    std::string_view text;                   ///< without these blanks
};

/// Parses a line (without its end); nothing if it is not a log line: the header is missing or
/// incomplete, or the component is not padded to its column.
std::optional<LogLine> parseLine(std::string_view line);

/// The position in a line at which another one begins, because the first one's end was never
/// written: the offset of the next complete header with a time, at or after `from`, or npos.
std::size_t findNextHeading(std::string_view line, std::size_t from);

/// The kind of a line's text.
enum class TextKind {
    entry,      ///< "+" and a method's tag
    exit,       ///< "-" and the tag, perhaps with " rc=" and a result
    markerIn,   ///< ">>> "
    markerOut,  ///< "<<< "
    message,    ///< anything else
};

/// The kind of a text, by its beginning.
TextKind kindOf(std::string_view text);

/// "History::add" from the tag "History::add: " or a line that begins with it; empty if the text
/// does not begin with a method's name.
std::string_view methodName(std::string_view tag);

}  // namespace jsw::ctl::log
