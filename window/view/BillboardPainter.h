/**
 * @file BillboardPainter.h
 * Draws a billboard page: a coloured panel with the picture on the left, the text beside it.
 */
#pragma once

#include "window/view/BillboardContent.h"
#include "window/view/InkPainter.h"
#include "window/view/PageLayout.h"
#include "window/view/PictureFile.h"
#include "window/view/Pictures.h"

namespace jsw::window {

/** A page with everything needed to draw it. */
struct Billboard {
    Page page;
    PictureFile picture; /**< empty without a file */
};

/** Draws the page at its layout. Buttons and links are separate controls. */
void paintBillboard(const Canvas& canvas, const Box& origin, const Billboard& billboard,
                    const PageLayout& layout, const Look& look);

}  // namespace jsw::window
