/**
 * @file InkPainter.h
 * Draws ink levels and progress as bars.
 */
#pragma once

#include "window/ui/TextPainter.h"
#include "window/view/InkLayout.h"

namespace jsw::window {

/** A bar of which this many thousandths, from the left, are filled. */
void paintBar(const Canvas& canvas, const Box& box, int permille, Colour colour, const Look& look);

/** A bar for work in progress of unknown length; step counts up while it is shown. */
void paintRunningBar(const Canvas& canvas, const Box& box, int step, const Look& look);

/** Steps of a running bar's cycle. */
inline constexpr int kRunningBarSteps = 90;

/** @param origin of the canvas in the layout's coordinates */
void paintInk(const Canvas& canvas, Box origin, const InkLayout& ink, const Look& look);

}  // namespace jsw::window
