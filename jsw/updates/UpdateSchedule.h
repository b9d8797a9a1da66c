#pragma once

#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <string>

namespace jsw {

/// Day of the calendar, as the numbers were written; none of them is checked.
struct CalendarDate {
    std::int32_t month;
    std::int32_t day;
    std::int32_t year;
};

/// "month/day/year" without leading zeros: 7/4/2008 is the fourth of July.
std::string formatDate(const std::tm& time);

/// The three numbers of a date text, in the order of formatDate(); blanks before a number and
/// anything after the last one are passed over. Nothing when there are no three numbers.
std::optional<CalendarDate> parseDate(const std::string& text);

/// Turns local broken-down time into calendar time; -1 when that is impossible.
using MakeTime = std::function<std::time_t(std::tm*)>;

/// Whether the interval since the midnight that began the day of the last check is over. A date
/// that cannot be understood, and an interval of 0, is always over.
///
/// @param lastCheck     date text of the last check
/// @param intervalDays  days of 24 hours
/// @param now, localNow the same moment; localNow tells whether it is daylight saving time
bool isCheckDue(const std::string& lastCheck, std::uint32_t intervalDays, std::time_t now,
                const std::tm& localNow, const MakeTime& makeTime);

}  // namespace jsw
