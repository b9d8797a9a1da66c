/**
 * @file TextPainter.h
 * Draws texts that have been given their place.
 */
#pragma once

#include "window/ui/Canvas.h"
#include "window/ui/Placed.h"

namespace jsw::ui {

/** What everything in a window is drawn with. */
struct Look {
    const Palette& palette;
    const Fonts& fonts;
    Scale scale;
};

/** Draws the text in its place. */
void paintText(const Canvas& canvas, const PlacedText& text, const Look& look);

/** The text moved to a canvas with this origin in the layout's coordinates. */
[[nodiscard]] PlacedText onCanvas(PlacedText text, const Box& origin);

/** Its colour. */
[[nodiscard]] Colour colourOf(Tone tone, const Palette& palette);

}  // namespace jsw::ui
