/**
 * @file InkLayout.h
 * The layout of the ink levels: a grid of names, levels and bars. Needs no Windows.
 */
#pragma once

#include "window/ui/Placed.h"
#include "window/view/WindowContent.h"

#include <optional>
#include <vector>

namespace jsw::view {

using ui::Box;
using ui::buttonHeight;
using ui::buttonWidth;
using ui::Font;
using ui::kBarHeight;
using ui::kButtonGap;
using ui::kButtonPadding;
using ui::kMargin;
using ui::placeButton;
using ui::PlacedButton;
using ui::PlacedText;
using ui::placeText;
using ui::Scale;
using ui::Side;
using ui::Size;
using ui::TextMeasure;
using ui::Tone;

/** One cartridge. */
struct InkCell {
    PlacedText label;
    PlacedText level;
    Box bar;
    std::optional<int> percent;
    bool isLow = false;
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

}  // namespace jsw::view
