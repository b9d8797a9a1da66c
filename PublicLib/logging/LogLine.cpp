#include "PublicLib/logging/LogLine.h"

#include <charconv>

namespace jsw {

namespace {

void appendPadded(std::string& line, std::uint32_t number, std::size_t width, int base) {
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof(digits), number, base).ptr;
    const auto length = static_cast<std::size_t>(end - digits);
    if (length < width) line.append(width - length, '0');
    line.append(digits, length);
}

void appendTime(std::string& line, const LogTime& time) {
    struct Field {
        unsigned value;
        std::size_t width;
        char separator;
    };
    const Field fields[] = {{time.year, 4, '/'},       {time.month, 2, '/'},  {time.day, 2, '-'},
                            {time.hour, 2, ':'},       {time.minute, 2, ':'}, {time.second, 2, '.'},
                            {time.millisecond, 3, ' '}};
    for (const Field& field : fields) {
        appendPadded(line, field.value, field.width, 10);
        line += field.separator;
    }
}

void appendId(std::string& line, std::string_view label, std::uint32_t id) {
    line.append(label);
    appendPadded(line, id, 4, 16);
    line += ' ';
}

}  // namespace

std::string formatLogLine(const LogHeader& header, std::string_view text) {
    std::string line;
    line.reserve(96 + header.depth + text.size());
    if (header.time) appendTime(line, *header.time);
    if (header.processId) appendId(line, "pid=", *header.processId);
    if (header.threadId) appendId(line, "tid=", *header.threadId);
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
