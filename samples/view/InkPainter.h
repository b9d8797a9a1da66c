/**
 * @file InkPainter.h
 * Draws ink levels and progress as bars.
 */
#pragma once

#include "samples/ui/TextPainter.h"
#include "samples/view/InkLayout.h"

namespace sampleview {

using sampleui::Canvas;
using sampleui::Colour;
using sampleui::colourOf;
using sampleui::Fonts;
using sampleui::Look;
using sampleui::onCanvas;
using sampleui::paintText;
using sampleui::Palette;

/** A bar of which this many thousandths, from the left, are filled. */
void paintBar(const Canvas& canvas, const Box& box, int permille, Colour colour, const Look& look);

/** A bar that only says that something is going on; step counts up while it is shown. */
void paintRunningBar(const Canvas& canvas, const Box& box, int step, const Look& look);

/** Steps after which a running bar looks as in the beginning. */
inline constexpr int kRunningBarSteps = 90;

/** @param origin of the canvas in the layout's coordinates */
void paintInk(const Canvas& canvas, Box origin, const InkLayout& ink, const Look& look);

}  // namespace sampleview
