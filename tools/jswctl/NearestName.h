#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace jsw::ctl {

/// The number of letters to change, add or remove to turn one text into the other.
std::size_t editDistance(std::string_view left, std::string_view right);

/// The candidate that was probably meant: it contains the name, like a decorated C++ name, or
/// differs in a few letters. Empty if there is none.
std::string nearestName(std::string_view name, const std::vector<std::string>& candidates);

}  // namespace jsw::ctl
