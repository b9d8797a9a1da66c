/**
 * @file InkPainter.h
 * Draws ink levels as bars.
 */
#pragma once

#include "samples/view/Canvas.h"
#include "samples/view/StatusText.h"

#include <array>
#include <vector>

namespace sampleview {

/** What the ink bars show. */
struct InkDisplay {
    std::vector<InkSlot> slots;
    std::array<bool, 2> reserveMode{}; /**< of cartridge 1 and 2 */
    bool operator==(const InkDisplay&) const = default;
};

/** Draws the slots in a grid of up to two rows; a sentence when no level is known. */
void paintInk(const Canvas& canvas, const RECT& area, const InkDisplay& ink, const Fonts& fonts);

}  // namespace sampleview
