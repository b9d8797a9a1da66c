#include "window/view/WindowPlace.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace jsw::window {
namespace {

/** No desktop is larger; prevents overflow of sums. */
constexpr int kFarthest = 1'000'000;

constexpr struct {
    const char* name;
    std::optional<int> SavedPlace::*member;
} kValues[] = {
    {"WindowX", &SavedPlace::x},
    {"WindowY", &SavedPlace::y},
    {"WindowWidth", &SavedPlace::width},
    {"WindowHeight", &SavedPlace::height},
};

int clampCoordinate(int wanted, int size, int start, int end) {
    // If a window is larger than the desktop, its title bar stays visible.
    return std::clamp(wanted, start, std::max(start, end - size));
}

}  // namespace

void SavedPlace::take(std::string_view name, std::string_view value) {
    for (const auto& known : kValues) {
        if (name == known.name) this->*known.member = parseCoordinate(value);
    }
}

std::vector<std::pair<const char*, std::string>> SavedPlace::values() const {
    std::vector<std::pair<const char*, std::string>> list;
    for (const auto& known : kValues) {
        if (const auto& value = this->*known.member) {
            list.emplace_back(known.name, std::to_string(*value));
        }
    }
    return list;
}

std::optional<int> parseCoordinate(std::string_view text) {
    int value = 0;
    const char* const end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || parsed != end) return std::nullopt;
    if (value < -kFarthest || value > kFarthest) return std::nullopt;
    return value;
}

Place clampToDesktop(Place wanted, Size window, const Box& desktop) {
    return {clampCoordinate(wanted.x, window.width, desktop.left, desktop.right),
            clampCoordinate(wanted.y, window.height, desktop.top, desktop.bottom)};
}

Place centred(Size window, const Box& desktop) {
    const Place middle{desktop.left + (desktop.width() - window.width) / 2,
                       desktop.top + (desktop.height() - window.height) / 2};
    return clampToDesktop(middle, window, desktop);
}

}  // namespace jsw::window
