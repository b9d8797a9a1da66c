/**
 * @file WindowPlace.h
 * Where the window goes and how large it is: as it was at an earlier job, as far as it can still be
 * seen. No Windows in it.
 */
#pragma once

#include "window/ui/Geometry.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jsw::view {

using ui::Box;
using ui::Size;

/** A position in pixels of the screen; may be negative on a second monitor. */
struct Place {
    int x = 0;
    int y = 0;
    bool operator==(const Place&) const = default;
};

/** What is kept of a window from job to job. */
struct SavedPlace {
    std::optional<int> x;
    std::optional<int> y;
    std::optional<int> width; /**< of the content, in pixels at 96 dots per inch */
    std::optional<int> height;
    bool operator==(const SavedPlace&) const = default;

    /** Takes one of the values that values() has named; others are not for this. */
    void take(std::string_view name, std::string_view value);
    /** The names and values to keep. */
    [[nodiscard]] std::vector<std::pair<const char*, std::string>> values() const;
};

/** A stored number, or nothing when the text is not a sensible one. */
[[nodiscard]] std::optional<int> parseCoordinate(std::string_view text);

/** The place nearest to the wanted one where the window lies within the desktop. */
[[nodiscard]] Place clampToDesktop(Place wanted, Size window, const Box& desktop);

/** The place that centres the window on the desktop. */
[[nodiscard]] Place centred(Size window, const Box& desktop);

}  // namespace jsw::view
