#include "jsw/updates/UpdateSchedule.h"

#include "PublicLib/text/Text.h"

#include <cstdio>

namespace jsw {

namespace {
constexpr std::int32_t kFirstYear = 1900;  // of broken-down time
constexpr double kSecondsPerDay = 86400.0;
constexpr std::time_t kNoTime = -1;
}  // namespace

std::string formatDate(const std::tm& time) {
    return concat(time.tm_mon + 1, "/", time.tm_mday, "/", time.tm_year + kFirstYear);
}

std::optional<CalendarDate> parseDate(const std::string& text) {
    CalendarDate date{};
    // So many characters fit 32 bits.
    if (std::sscanf(text.c_str(), "%9d/%9d/%9d", &date.month, &date.day, &date.year) != 3) {
        return std::nullopt;
    }
    return date;
}

bool isCheckDue(const std::string& lastCheck, std::uint32_t intervalDays, std::time_t now,
                const std::tm& localNow, MakeTime makeTime) {
    const auto date = parseDate(lastCheck);
    if (intervalDays == 0 || !date) return true;
    std::tm midnight{};
    midnight.tm_mon = date->month - 1;
    midnight.tm_mday = date->day;
    midnight.tm_year = date->year - kFirstYear;
    midnight.tm_isdst = localNow.tm_isdst;
    const std::time_t checked = makeTime(&midnight);
    return checked == kNoTime || intervalDays <= std::difftime(now, checked) / kSecondsPerDay;
}

}  // namespace jsw
