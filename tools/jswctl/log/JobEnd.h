#pragma once

#include "tools/jswctl/log/Job.h"

#include <optional>
#include <vector>

namespace jsw::ctl::log {

/// The trouble that no line tells of: the log has no end of the job. Nothing when it has.
/// @param open  the calls that were running when its lines end, of each thread the innermost first
std::optional<Finding> findMissingEnd(const Job& job, const std::vector<Call>& open);

}  // namespace jsw::ctl::log
