#include "tools/jswctl/NearestName.h"

#include <algorithm>
#include <numeric>

namespace jsw::ctl {

namespace {

constexpr std::size_t kShortestHeldName = 6;  // shorter names occur in too many others

/// Letters that may differ: one in five, at least two.
std::size_t tolerance(std::string_view name) {
    return std::max<std::size_t>(2, name.size() / 5);
}

}  // namespace

std::size_t editDistance(std::string_view left, std::string_view right) {
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t changed = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

std::string nearestName(std::string_view name, const std::vector<std::string>& candidates) {
    std::string nearest;
    std::size_t least = std::min(tolerance(name) + 1, name.size());
    for (const std::string& candidate : candidates) {
        const bool held =
            name.size() >= kShortestHeldName && candidate.find(name) != std::string::npos;
        const std::size_t distance = held ? 0 : editDistance(name, candidate);
        if (distance < least) {
            least = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

}  // namespace jsw::ctl
