#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace jsw::ctl::log {

/// Milliseconds since 1970 of a clock that shows local time.
using Milliseconds = std::int64_t;

/// One line of a log, taken apart. The texts point into the line that was parsed.
struct LogLine {
    std::optional<Milliseconds> time;        ///< absent while "Clocktime_In_Header" is 0
    std::optional<std::uint32_t> processId;  ///< absent while "Proc_Id_In_Header" is 0
    std::optional<std::uint32_t> threadId;   ///< absent while "Thread_Id_In_Header" is 0
    std::string_view component;              ///< "JSW", "Catalog", …
    unsigned depth = 0;                      ///< blanks before the text
    std::string_view text;                   ///< without these blanks
};

/// Takes a line (without its end) apart; nothing when it is no line of a log: the heading is
/// missing or not whole, or the component is not padded to its column.
std::optional<LogLine> parseLine(std::string_view line);

/// Where in a line another one begins, because the end of the first was never written: the offset
/// of the next whole heading with a time at or after `from`, or npos.
std::size_t findNextHeading(std::string_view line, std::size_t from);

/// What the text of a line is.
enum class TextKind {
    entry,      ///< "+" and a method's tag
    exit,       ///< "-" and the tag, perhaps with " rc=" and a result
    markerIn,   ///< ">>> "
    markerOut,  ///< "<<< "
    message,    ///< anything else
};

/// Tells by the beginning of a text what it is.
TextKind kindOf(std::string_view text);

/// "History::add" of the tag "History::add: " or of a line that begins with it; empty when the text
/// begins with no method's name.
std::string_view methodName(std::string_view tag);

}  // namespace jsw::ctl::log
