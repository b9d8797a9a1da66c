#include "tools/jswctl/log/LogLine.h"

#include <algorithm>
#include <charconv>
#include <chrono>

namespace jsw::ctl::log {

namespace {

constexpr std::size_t kComponentWidth = 25;
constexpr std::string_view kTimeShape = "0000/00/00-00:00:00.000 ";

bool isDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

bool isNameLetter(char letter) {
    return isDigit(letter) || (letter >= 'A' && letter <= 'Z') ||
           (letter >= 'a' && letter <= 'z') || letter == '_';
}

bool hasTimeShape(std::string_view line) {
    if (line.size() < kTimeShape.size()) return false;
    for (std::size_t i = 0; i < kTimeShape.size(); ++i) {
        const bool fits = kTimeShape[i] == '0' ? isDigit(line[i]) : line[i] == kTimeShape[i];
        if (!fits) return false;
    }
    return true;
}

int digitsAt(std::string_view line, std::size_t position, std::size_t count) {
    int number = 0;
    for (const char digit : line.substr(position, count)) number = number * 10 + (digit - '0');
    return number;
}

/// Only for lines of the right form; nothing if the day or the hour does not exist.
std::optional<Milliseconds> timeOf(std::string_view line) {
    using namespace std::chrono;
    const year_month_day day(year(digitsAt(line, 0, 4)),
                             month(static_cast<unsigned>(digitsAt(line, 5, 2))),
                             std::chrono::day(static_cast<unsigned>(digitsAt(line, 8, 2))));
    const int hour = digitsAt(line, 11, 2);
    const int minute = digitsAt(line, 14, 2);
    const int second = digitsAt(line, 17, 2);
    if (!day.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
    const milliseconds time = sys_days(day).time_since_epoch() + hours(hour) + minutes(minute) +
                              seconds(second) + milliseconds(digitsAt(line, 20, 3));
    return time.count();
}

/// Cuts a time off the front of the rest; false if it is invalid.
bool takeTime(std::string_view& rest, std::optional<Milliseconds>& time) {
    if (!hasTimeShape(rest)) return true;
    time = timeOf(rest);
    rest.remove_prefix(kTimeShape.size());
    return time.has_value();
}

/// Cuts "pid=0042 " or the like off the front of the rest; false if it is incomplete.
bool takeId(std::string_view& rest, std::string_view label, std::optional<std::uint32_t>& id) {
    if (!rest.starts_with(label)) return true;
    const std::string_view digits = rest.substr(label.size(), rest.find(' ') - label.size());
    std::uint32_t number = 0;
    const char* const last = digits.data() + digits.size();
    const auto [end, error] = std::from_chars(digits.data(), last, number, 16);
    if (error != std::errc() || end != last || digits.size() < 4) return false;
    rest.remove_prefix(std::min(rest.size(), label.size() + digits.size() + 1));
    id = number;
    return true;
}

/// Cuts the padded name and the blank after it off the front of the rest.
bool takeComponent(std::string_view& rest, std::string_view& component) {
    const auto end = std::find_if_not(rest.begin(), rest.end(), isNameLetter);
    component = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    const std::size_t column = std::max(component.size(), kComponentWidth);
    if (component.empty() || rest.size() <= column) return false;
    const std::string_view padding = rest.substr(component.size(), column + 1 - component.size());
    if (padding.find_first_not_of(' ') != std::string_view::npos) return false;
    rest.remove_prefix(column + 1);
    return true;
}

}  // namespace

std::optional<LogLine> parseLine(std::string_view line) {
    LogLine result;
    std::string_view rest = line;
    if (!takeTime(rest, result.time) || !takeId(rest, "pid=", result.processId) ||
        !takeId(rest, "tid=", result.threadId) || !takeComponent(rest, result.component)) {
        return std::nullopt;
    }
    const std::size_t depth = std::min(rest.find_first_not_of(' '), rest.size());
    result.depth = static_cast<unsigned>(depth);
    result.text = rest.substr(depth);
    return result;
}

std::size_t findNextHeading(std::string_view line, std::size_t from) {
    constexpr std::size_t kSlash = 4;  // position of the first one in a time
    for (std::size_t slash = line.find('/', std::min(line.size(), from) + kSlash);
         slash != std::string_view::npos; slash = line.find('/', slash + 1)) {
        const std::string_view rest = line.substr(slash - kSlash);
        if (hasTimeShape(rest) && parseLine(rest)) return slash - kSlash;
    }
    return std::string_view::npos;
}

TextKind kindOf(std::string_view text) {
    if (text.starts_with(">>> ")) return TextKind::markerIn;
    if (text.starts_with("<<< ")) return TextKind::markerOut;
    if (text.empty() || methodName(text.substr(1)).empty()) return TextKind::message;
    if (text.front() == '+') return TextKind::entry;
    return text.front() == '-' ? TextKind::exit : TextKind::message;
}

std::string_view methodName(std::string_view tag) {
    const auto belongs = [](char letter) {
        return isNameLetter(letter) || letter == ':' || letter == '~' || letter == '<' ||
               letter == '>';
    };
    const auto end = std::find_if_not(tag.begin(), tag.end(), belongs);
    std::string_view name = tag.substr(0, static_cast<std::size_t>(end - tag.begin()));
    while (name.ends_with(':')) name.remove_suffix(1);
    const std::size_t colons = name.find("::");
    return colons == std::string_view::npos || colons == 0 ? std::string_view() : name;
}

}  // namespace jsw::ctl::log
