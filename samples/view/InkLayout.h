/**
 * @file InkLayout.h
 * Where the ink levels are: a grid of names, levels and bars. No Windows in it.
 */
#pragma once

#include "samples/ui/Placed.h"
#include "samples/view/WindowContent.h"

#include <optional>
#include <vector>

namespace sampleview {

using sampleui::Box;
using sampleui::buttonHeight;
using sampleui::buttonWidth;
using sampleui::Font;
using sampleui::kBarHeight;
using sampleui::kButtonGap;
using sampleui::kButtonPadding;
using sampleui::kMargin;
using sampleui::placeButton;
using sampleui::PlacedButton;
using sampleui::PlacedText;
using sampleui::placeText;
using sampleui::Scale;
using sampleui::Side;
using sampleui::Size;
using sampleui::TextMeasure;
using sampleui::Tone;

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
    std::optional<PlacedText> sentence; /**< in the place of cells, when there are none */
    int bottom = 0;
    bool operator==(const InkLayout&) const = default;
};

/**
 * Places the levels side by side as long as their texts fit, else in up to five rows.
 * @param area its bottom does not count; see InkLayout::bottom
 */
[[nodiscard]] InkLayout layoutInk(const WindowContent& content, const Box& area,
                                  const TextMeasure& measure, const Scale& scale);

}  // namespace sampleview
