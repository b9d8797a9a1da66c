/**
 * @file WindowPlace.h
 * Where the window goes: the place kept from an earlier job, as far as it can still be seen.
 */
#pragma once

#include <optional>
#include <string_view>

namespace sampleview {

/** A position in pixels of the screen; may be negative on a second monitor. */
struct Place {
    int x = 0;
    int y = 0;
    bool operator==(const Place&) const = default;
};

/** An area of the screen in pixels. */
struct Area {
    Place corner;
    int width = 0;
    int height = 0;
};

/** A stored coordinate, or nothing when the text is not a sensible one. */
[[nodiscard]] std::optional<int> parseCoordinate(std::string_view text);

/** The place nearest to the wanted one where the window lies within the desktop. */
[[nodiscard]] Place clampToDesktop(Place wanted, int width, int height, const Area& desktop);

/** The place that centres the window on the desktop. */
[[nodiscard]] Place centred(int width, int height, const Area& desktop);

}  // namespace sampleview
