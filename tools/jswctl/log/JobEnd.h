#pragma once

#include "tools/jswctl/log/LoggedJob.h"

#include <optional>
#include <vector>

namespace jsw::ctl::log {

/// The problem that has no line: the job's end is missing in the log. Nothing if it is there.
/// @param open  the calls that were running at the last line, each thread's innermost first
std::optional<Problem> findMissingEnd(const LoggedJob& job, const std::vector<Call>& open);

}  // namespace jsw::ctl::log
