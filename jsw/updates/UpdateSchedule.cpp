#include "jsw/updates/UpdateSchedule.h"

#include "PublicLib/text/Text.h"

#include <cstdlib>

namespace jsw {

namespace {

constexpr std::int32_t kFirstYear = 1900;  // of broken-down time
constexpr double kSecondsPerDay = 86400.0;
constexpr std::time_t kNoTime = -1;

/// Takes a number, with the blanks before it, from the front of the text. Nothing for one with
/// which calendar arithmetic could leave the range of an int.
std::optional<int> takeNumber(const char*& text) {
    constexpr int kLargest = 999'999'999;
    char* end = nullptr;
    const long long number = std::strtoll(text, &end, 10);
    if (end == text || number < -kLargest || number > kLargest) return std::nullopt;
    text = end;
    return static_cast<int>(number);
}

}  // namespace

std::string formatDate(const std::tm& time) {
    return concat(time.tm_mon + 1, "/", time.tm_mday, "/", time.tm_year + kFirstYear);
}

std::optional<CalendarDate> parseDate(const std::string& text) {
    const char* rest = text.c_str();
    const auto month = takeNumber(rest);
    if (!month || *rest++ != '/') return std::nullopt;
    const auto day = takeNumber(rest);
    if (!day || *rest++ != '/') return std::nullopt;
    const auto year = takeNumber(rest);
    if (!year) return std::nullopt;
    return CalendarDate{*month, *day, *year};
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
