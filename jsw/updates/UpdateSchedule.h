#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>

namespace jsw {

/// A date as written; the numbers are not checked.
struct CalendarDate {
    int month;
    int day;
    int year;
};

/// "month/day/year" without leading zeros: 7/4/2008 is the fourth of July.
std::string formatDate(const std::tm& time);

/// The three numbers of a date text, in the order of formatDate(), up to 999,999,999. Blanks before
/// a number and anything after the last one are ignored. Nothing if there are fewer than three
/// numbers.
std::optional<CalendarDate> parseDate(const std::string& text);

/// Converts local broken-down time to calendar time; -1 if that is impossible.
using MakeTime = std::time_t (*)(std::tm*);

/// Whether the interval since the midnight at the start of the last check's day is over. With an
/// invalid date or an interval of 0 a check is always due.
///
/// @param lastCheck     date text of the last check
/// @param intervalDays  days of 24 hours
/// @param now, localNow the same moment; localNow tells whether it is daylight saving time
bool isCheckDue(
    const std::string& lastCheck, std::uint32_t intervalDays, std::time_t now,
    const std::tm& localNow, MakeTime makeTime = [](std::tm* time) { return std::mktime(time); });

}  // namespace jsw
