#include "jsw/updates/UpdateSchedule.h"

#include "PublicLib/text/Text.h"

#include <cctype>
#include <charconv>
#include <limits>

namespace jsw {

namespace {

constexpr std::int32_t kFirstYear = 1900;  // of broken-down time
constexpr double kSecondsPerDay = 86400.0;
constexpr std::time_t kNoTime = -1;

/// Takes a number, with the blanks before it, from the front of the text. Values beyond 32 bits are
/// rejected.
std::optional<std::int32_t> takeNumber(std::string_view& text) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front())) != 0) {
        text.remove_prefix(1);
    }
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{}) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

bool takeSlash(std::string_view& text) {
    if (text.empty() || text.front() != '/') return false;
    text.remove_prefix(1);
    return true;
}

/// Midnight at the beginning of the day; nothing if calendar time has no such moment.
std::optional<std::time_t> midnight(const CalendarDate& date, int daylightSaving,
                                    const MakeTime& makeTime) {
    constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
    if (date.month == kLowest || date.year < kLowest + kFirstYear) return std::nullopt;
    std::tm time{};
    time.tm_mon = date.month - 1;
    time.tm_mday = date.day;
    time.tm_year = date.year - kFirstYear;
    time.tm_isdst = daylightSaving;
    const std::time_t result = makeTime(&time);
    if (result == kNoTime) return std::nullopt;
    return result;
}

}  // namespace

std::string formatDate(const std::tm& time) {
    return concat(time.tm_mon + 1, "/", time.tm_mday, "/", time.tm_year + kFirstYear);
}

std::optional<CalendarDate> parseDate(const std::string& text) {
    std::string_view rest = text;
    const auto month = takeNumber(rest);
    if (!month || !takeSlash(rest)) return std::nullopt;
    const auto day = takeNumber(rest);
    if (!day || !takeSlash(rest)) return std::nullopt;
    const auto year = takeNumber(rest);
    if (!year) return std::nullopt;
    return CalendarDate{*month, *day, *year};
}

bool isCheckDue(const std::string& lastCheck, std::uint32_t intervalDays, std::time_t now,
                const std::tm& localNow, const MakeTime& makeTime) {
    if (intervalDays == 0) return true;
    const auto date = parseDate(lastCheck);
    if (!date) return true;
    const auto checked = midnight(*date, localNow.tm_isdst, makeTime);
    if (!checked) return true;
    return static_cast<double>(intervalDays) <= std::difftime(now, *checked) / kSecondsPerDay;
}

}  // namespace jsw
