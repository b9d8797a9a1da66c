#include "PublicLib/logging/LogLine.h"

#include <array>
#include <cstdio>

namespace jsw {

namespace {

/// Appends numbers in the shape of a printf format.
template <class... Numbers>
void appendNumbers(std::string& line, const char* format, Numbers... numbers) {
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), format, numbers...);
    line += text.data();
}

}  // namespace

std::string formatLogLine(const LogHeader& header, std::string_view text) {
    std::string line;
    line.reserve(96 + header.depth + text.size());
    if (const auto& time = header.time) {
        appendNumbers(line, "%04u/%02u/%02u-%02u:%02u:%02u.%03u ", time->year, time->month,
                      time->day, time->hour, time->minute, time->second, time->millisecond);
    }
    if (header.processId) appendNumbers(line, "pid=%04x ", unsigned{*header.processId});
    if (header.threadId) appendNumbers(line, "tid=%04x ", unsigned{*header.threadId});
    line.append(header.component);
    if (header.component.size() < header.componentWidth) {
        line.append(header.componentWidth - header.component.size(), ' ');
    }
    line += ' ';
    line.append(header.depth, ' ');
    line.append(text);
    return line;
}

}  // namespace jsw
