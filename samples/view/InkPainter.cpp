#include "samples/view/InkPainter.h"

#include <algorithm>

namespace sampleview {
namespace {

/** Up to this level (per cent) a bar is drawn as a warning. */
constexpr int kLowPercent = 20;

/** Space between two bars, as a share of a text line. */
constexpr int kGapPercent = 90;

/** The slot's name in the space that its level leaves: in full, or the number alone. */
std::string heading(const Canvas& canvas, const InkSlot& slot, const InkDisplay& ink,
                    const Fonts& fonts, int space) {
    const bool reserve = slot.number <= ink.reserveMode.size() && ink.reserveMode[slot.number - 1];
    const std::string name = inkLabel(slot) + (reserve ? " (reserve)" : "");
    const bool fits = canvas.width(name + "  ", fonts.normal.get()) <= space;
    return fits ? name : std::to_string(slot.number);
}

void paintBar(const Canvas& canvas, const RECT& area, int percent) {
    const int radius = (area.bottom - area.top) / 2;
    canvas.fillRound(area, radius, colours::kBarGround);
    RECT filled = area;
    filled.right = area.left + (area.right - area.left) * percent / 100;
    if (percent == 0) return;
    // A rounded bar narrower than its height would not look like one.
    filled.right = std::max(filled.right, filled.left + (area.bottom - area.top));
    canvas.fillRound(filled, radius, percent <= kLowPercent ? colours::kLowInk : colours::kInk);
}

void paintSlot(const Canvas& canvas, const RECT& cell, const InkSlot& slot, const InkDisplay& ink,
               const Fonts& fonts) {
    const int line = canvas.wrappedHeight("X", fonts.normal.get(), cell.right - cell.left);
    const RECT label{cell.left, cell.top, cell.right, cell.top + line};
    const bool low = slot.percent && *slot.percent <= kLowPercent;
    const HFONT levelFont = (slot.percent ? fonts.bold : fonts.normal).get();
    const int space = cell.right - cell.left - canvas.width(inkLevel(slot), levelFont);
    canvas.text(label, heading(canvas, slot, ink, fonts, space), fonts.normal.get(), colours::kText,
                DT_SINGLELINE);
    canvas.text(label, inkLevel(slot), levelFont,
                low ? colours::kLowInk : (slot.percent ? colours::kText : colours::kFaintText),
                DT_SINGLELINE | DT_RIGHT);
    if (!slot.percent) return;
    const int top = label.bottom + line / 5;
    const int thickness = std::min<int>(cell.bottom - line / 4 - top, line);
    if (thickness > 0) {
        paintBar(canvas, {cell.left, top, cell.right, top + thickness}, *slot.percent);
    }
}

int columnsFor(int slots) {
    if (slots <= 4) return std::min(slots, 2);
    return (slots + 1) / 2;
}

}  // namespace

void paintInk(const Canvas& canvas, const RECT& area, const InkDisplay& ink, const Fonts& fonts) {
    if (ink.slots.empty()) {
        canvas.text(area, inkSummary(ink.slots), fonts.normal.get(), colours::kFaintText,
                    DT_SINGLELINE | DT_VCENTER);
        return;
    }
    const int count = static_cast<int>(ink.slots.size());
    const int columns = columnsFor(count);
    const int rows = (count + columns - 1) / columns;
    const int width = area.right - area.left;
    const int gap = canvas.wrappedHeight("X", fonts.normal.get(), width) * kGapPercent / 100;
    const int cellWidth = (width - gap * (columns - 1)) / columns;
    const int cellHeight = (area.bottom - area.top) / std::max(rows, 2);
    const LONG first = area.top + (area.bottom - area.top - rows * cellHeight) / 2;
    for (int i = 0; i < count; ++i) {
        const LONG left = area.left + i % columns * (cellWidth + gap);
        const LONG top = first + i / columns * cellHeight;
        paintSlot(canvas, {left, top, left + cellWidth, top + cellHeight},
                  ink.slots[static_cast<std::size_t>(i)], ink, fonts);
    }
}

}  // namespace sampleview
