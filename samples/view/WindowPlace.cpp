#include "samples/view/WindowPlace.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace sampleview {
namespace {

/** No desktop reaches further; keeps the sums below from overflowing. */
constexpr int kFarthest = 1'000'000;

int clampCoordinate(int wanted, int size, int start, int available) {
    // A window larger than the desktop keeps its title bar in sight.
    return std::clamp(wanted, start, std::max(start, start + available - size));
}

}  // namespace

std::optional<int> parseCoordinate(std::string_view text) {
    int value = 0;
    const char* const end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || parsed != end) return std::nullopt;
    if (value < -kFarthest || value > kFarthest) return std::nullopt;
    return value;
}

Place clampToDesktop(Place wanted, int width, int height, const Area& desktop) {
    return {clampCoordinate(wanted.x, width, desktop.corner.x, desktop.width),
            clampCoordinate(wanted.y, height, desktop.corner.y, desktop.height)};
}

Place centred(int width, int height, const Area& desktop) {
    const Place middle{desktop.corner.x + (desktop.width - width) / 2,
                       desktop.corner.y + (desktop.height - height) / 2};
    return clampToDesktop(middle, width, height, desktop);
}

}  // namespace sampleview
