#pragma once

#include <string>
#include <vector>

namespace jsw::sample {

/** How this program was started: one line per fact, "name: value". */
[[nodiscard]] std::vector<std::string> howStarted(bool elevationAsked);

/** Local time as "2031-05-09 14:03:07". */
[[nodiscard]] std::string localTime();

/** Appends lines to a text file; false on failure. */
bool appendLines(const std::string& file, const std::vector<std::string>& lines);

}  // namespace jsw::sample
