/**
 * @file TextPainter.h
 * Draws texts at their positions.
 */
#pragma once

#include "window/ui/Canvas.h"
#include "window/ui/Placed.h"

namespace jsw::window {

/** Everything needed to draw a window's content. */
struct Look {
    const Palette& palette;
    const Fonts& fonts;
    Scale scale;
};

/** Draws the text in its box. */
void paintText(const Canvas& canvas, const PlacedText& text, const Look& look);

/** The text moved to a canvas with this origin in the layout's coordinates. */
[[nodiscard]] PlacedText onCanvas(PlacedText text, const Box& origin);

/** Its colour. */
[[nodiscard]] Colour colourOf(Tone tone, const Palette& palette);

}  // namespace jsw::window
