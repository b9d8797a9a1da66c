/**
 * @file BillboardPainter.h
 * Draws a billboard page: a coloured panel with the picture on the left, the text beside it.
 */
#pragma once

#include "window/view/BillboardContent.h"
#include "window/view/InkPainter.h"
#include "window/view/PageLayout.h"
#include "window/view/Pictures.h"

namespace jsw::view {

/** A page with what it takes to draw it. */
struct Billboard {
    Page page;
    GdiObject<HBITMAP> bitmap; /**< the picture file's content, or null */
};

/** Draws the page as it is laid out. The buttons and links are controls of their own. */
void paintBillboard(const Canvas& canvas, const Box& origin, const Billboard& billboard,
                    const PageLayout& layout, const Look& look);

}  // namespace jsw::view
