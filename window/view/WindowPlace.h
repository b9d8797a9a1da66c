/**
 * @file WindowPlace.h
 * The window's position and size: those of an earlier job, moved so that the window is visible.
 * Needs no Windows.
 */
#pragma once

#include "window/ui/Geometry.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jsw::window {

/** A position in pixels of the screen; may be negative on a second monitor. */
struct Place {
    int x = 0;
    int y = 0;
    bool operator==(const Place&) const = default;
};

/** The values that a window keeps from job to job. */
struct SavedPlace {
    std::optional<int> x;
    std::optional<int> y;
    std::optional<int> width; /**< of the content, in pixels at 96 dots per inch */
    std::optional<int> height;
    bool operator==(const SavedPlace&) const = default;

    /** Takes one of values()' values; ignores others. */
    void take(std::string_view name, std::string_view value);
    /** The names and values to save. */
    [[nodiscard]] std::vector<std::pair<const char*, std::string>> values() const;
};

/** A stored number; nothing if the text is not a valid coordinate. */
[[nodiscard]] std::optional<int> parseCoordinate(std::string_view text);

/** The place nearest to the wanted one at which the window is inside the desktop. */
[[nodiscard]] Place clampToDesktop(Place wanted, Size window, const Box& desktop);

/** The place that centres the window on the desktop. */
[[nodiscard]] Place centred(Size window, const Box& desktop);

}  // namespace jsw::window
