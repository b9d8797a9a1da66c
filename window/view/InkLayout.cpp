#include "window/view/InkLayout.h"

#include <algorithm>

namespace jsw::window {
namespace {

constexpr int kMostRows = 5;
constexpr int kColumnGap = 24;
constexpr int kRowGap = 10;
constexpr int kBarGap = 4;   /**< between a name and its bar */
constexpr int kTextGap = 10; /**< between a name and its level */

int levelWidth(const InkContent& slot, const TextMeasure& measure) {
    return measure.width(slot.level, slot.percent ? Font::bold : Font::normal);
}

/** The largest number of columns in which every name and level fits in full. */
int columnsFor(const std::vector<InkContent>& slots, int width, const TextMeasure& measure,
               const Scale& scale) {
    int widest = 0;
    for (const InkContent& slot : slots) {
        widest = std::max(widest, measure.width(slot.label, Font::normal) + scale(kTextGap) +
                                      levelWidth(slot, measure));
    }
    const int count = static_cast<int>(slots.size());
    const int fewest = (count + kMostRows - 1) / kMostRows;
    const int fitting = (width + scale(kColumnGap)) / std::max(widest + scale(kColumnGap), 1);
    const int columns = std::clamp(fitting, fewest, count);
    const int rows = (count + columns - 1) / columns;
    return (count + rows - 1) / rows;  // rows of equal length, if possible
}

InkCell layoutCell(const InkContent& slot, const Box& cell, const TextMeasure& measure,
                   const Scale& scale) {
    const int line = measure.lineHeight(Font::normal);
    const int gap = scale(kTextGap);
    // The level keeps its room; the name is cut.
    const int level = std::min(levelWidth(slot, measure), std::max(cell.width() - gap, 0));
    const Box right{cell.right - level, cell.top, cell.right, cell.top + line};
    const Box left{cell.left, cell.top, std::max(right.left - gap, cell.left), cell.top + line};
    const Tone tone = slot.isLow ? Tone::warning : slot.percent ? Tone::usual : Tone::faint;
    const int barTop = cell.top + line + scale(kBarGap);
    return {placeText(left, slot.label, Font::normal, Tone::usual, Side::left, measure),
            placeText(right, slot.level, slot.percent ? Font::bold : Font::normal, tone,
                      Side::right, measure),
            {cell.left, barTop, cell.right, barTop + scale(kBarHeight)},
            slot.percent,
            slot.isLow,
            slot.colour};
}

}  // namespace

InkLayout layoutInk(const WindowContent& content, const Box& area, const TextMeasure& measure,
                    const Scale& scale) {
    InkLayout layout;
    const int line = measure.lineHeight(Font::normal);
    if (content.ink.empty()) {
        layout.bottom = area.top + line;
        layout.sentence =
            placeText({area.left, area.top, area.right, layout.bottom}, content.inkSentence,
                      Font::normal, Tone::faint, Side::left, measure);
        return layout;
    }
    const int count = static_cast<int>(content.ink.size());
    const int columns = columnsFor(content.ink, area.width(), measure, scale);
    const int gap = scale(kColumnGap);
    const int cellWidth = (area.width() - gap * (columns - 1)) / columns;
    const int cellHeight = line + scale(kBarGap) + scale(kBarHeight);
    for (int i = 0; i < count; ++i) {
        const int left = area.left + i % columns * (cellWidth + gap);
        const int top = area.top + i / columns * (cellHeight + scale(kRowGap));
        layout.bottom = top + cellHeight;
        layout.cells.push_back(layoutCell(content.ink[static_cast<std::size_t>(i)],
                                          {left, top, left + cellWidth, layout.bottom}, measure,
                                          scale));
    }
    return layout;
}

}  // namespace jsw::window
