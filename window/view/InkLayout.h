/**
 * @file InkLayout.h
 * The layout of the ink levels: a grid of names, levels and bars. Needs no Windows.
 */
#pragma once

#include "window/ui/Placed.h"
#include "window/view/WindowContent.h"

#include <optional>
#include <vector>

namespace jsw::window {

/** One cartridge. */
struct InkCell {
    PlacedText label;
    PlacedText level;
    Box bar;
    std::optional<int> percent;
    bool isLow = false;
    std::optional<Colour> colour; /**< nothing: the usual one */
    bool operator==(const InkCell&) const = default;
};

struct InkLayout {
    std::vector<InkCell> cells;
    std::optional<PlacedText> sentence; /**< instead of cells, if there are none */
    int bottom = 0;
    bool operator==(const InkLayout&) const = default;
};

/**
 * Places the levels side by side if their texts fit, otherwise in up to five rows.
 * @param area its bottom is ignored; see InkLayout::bottom
 */
[[nodiscard]] InkLayout layoutInk(const WindowContent& content, const Box& area,
                                  const TextMeasure& measure, const Scale& scale);

}  // namespace jsw::window
