#pragma once

#include <jsw/types.h>

#include <string>
#include <vector>

namespace jsw {

/// One line per field of the ink record, name and value, in the order of the log.
std::vector<std::string> inkInfoLines(const InkInfo& inkInfo);

}  // namespace jsw
