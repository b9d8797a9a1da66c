#pragma once

#include <jsw/types.h>

#include <string>
#include <vector>

namespace jsw {

/// One log line per field of the ink record, name and value, in the log's order.
std::vector<std::string> inkInfoLines(const InkInfo& inkInfo);

}  // namespace jsw
