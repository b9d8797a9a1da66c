#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace jsw::ctl {

/// How many letters must be changed, added or taken away to make one text of the other.
std::size_t editDistance(std::string_view left, std::string_view right);

/// The candidate that was probably meant to be the name: it holds the name, as a decorated C++ name
/// does, or differs in a few letters only. Empty when there is none.
std::string nearestName(std::string_view name, const std::vector<std::string>& candidates);

}  // namespace jsw::ctl
