/**
 * @file InkPainter.h
 * Draws ink levels and progress as bars.
 */
#pragma once

#include "samples/ui/Canvas.h"
#include "samples/view/InkLayout.h"

namespace sampleview {

using sampleui::Canvas;
using sampleui::Colour;
using sampleui::Fonts;
using sampleui::Palette;

/** What everything in the window is drawn with. */
struct Look {
    const Palette& palette;
    const Fonts& fonts;
    Scale scale;
};

/** Draws the text in its place. */
void paintText(const Canvas& canvas, const PlacedText& text, const Look& look);

/** A bar of which this many thousandths, from the left, are filled. */
void paintBar(const Canvas& canvas, const Box& box, int permille, Colour colour, const Look& look);

/** A bar that only says that something is going on; step counts up while it is shown. */
void paintRunningBar(const Canvas& canvas, const Box& box, int step, const Look& look);

/** Steps after which a running bar looks as in the beginning. */
inline constexpr int kRunningBarSteps = 90;

/** @param origin of the canvas in the layout's coordinates; likewise below */
void paintInk(const Canvas& canvas, Box origin, const InkLayout& ink, const Look& look);

/** The text moved to a canvas with this origin. */
[[nodiscard]] PlacedText onCanvas(PlacedText text, const Box& origin);

/** Its colour. */
[[nodiscard]] Colour colourOf(Tone tone, const Palette& palette);

}  // namespace sampleview
