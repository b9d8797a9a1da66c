#pragma once

#include "tools/jswctl/log/LoggedJob.h"
#include "tools/jswctl/log/ReadLog.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The wording of the reports.
namespace jsw::ctl::log {

/// "2026/11/21 17:08:02.123".
std::string timeInWords(Milliseconds time);
/// "2.043 s".
std::string secondsInWords(Milliseconds duration);
/// "1 job", "1,234 jobs".
std::string countInWords(std::uint64_t count, std::string_view singular, std::string_view plural);
/// "stops", "hinders" or "note".
std::string_view impactInWords(Impact impact);
/// "0042", as in the log.
std::string idInWords(std::uint32_t id);
/// The text with a question mark for each control character.
std::string printable(std::string_view text);

/// What the job printed: "\"report.pdf\" on \"Office printer\", 3 pages, 1 copy".
std::string jobInWords(const LoggedJob& job);
/// Time, duration, process and position in the log.
std::string placeInWords(const LoggedJob& job);
/// Whether there is anything to report about it.
bool isWorthTelling(const LoggedJob& job);

/// The file's statistics, a sentence each.
std::vector<std::string> fileInWords(const Totals& totals, std::uint64_t linesOutsideJobs);

}  // namespace jsw::ctl::log
