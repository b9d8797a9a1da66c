/**
 * @file BillboardPainter.h
 * Draws a billboard page: a coloured panel with the picture on the left, the text beside it.
 */
#pragma once

#include "samples/view/BillboardContent.h"
#include "samples/view/Canvas.h"
#include "samples/view/InkPainter.h"

namespace sampleview {

/** Width of the panel on the left of the page, in pixels at 96 dots per inch. */
inline constexpr int kPanelWidth = 150;

/** Space around the text, in the same unit. */
inline constexpr int kPageMargin = 16;

/** Height that the page's buttons take at its lower edge, in the same unit. */
inline constexpr int kPageButtonHeight = 28;

/** A page with what it takes to draw it. */
struct Billboard {
    Page page;
    GdiObject<HBITMAP> bitmap; /**< the picture file's content, or null */
};

/**
 * Draws the page into the area. The buttons are controls of their own; their row stays free.
 * @param unit dots per inch of the screen
 */
void paintBillboard(const Canvas& canvas, const RECT& area, const Billboard& billboard,
                    const InkDisplay& ink, const Fonts& fonts, int unit);

}  // namespace sampleview
