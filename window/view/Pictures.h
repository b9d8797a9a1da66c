/**
 * @file Pictures.h
 * The picture at the side of a billboard: a built-in drawing.
 */
#pragma once

#include "window/ui/Canvas.h"
#include "window/view/BillboardContent.h"

namespace jsw::window {

/** The colours of a theme. */
struct ThemeColours {
    Colour light; /**< of the side panel, at its top */
    Colour dark;  /**< at its bottom */
    Colour title;
    Colour paper; /**< of a picture on the panel */
    Colour shade; /**< of its shaded parts */
    Colour tint;  /**< between paper and accent */
    Colour accent;
};

[[nodiscard]] ThemeColours themeColours(Theme theme, const Palette& palette);

/** Draws the built-in picture centred in the area; nothing for none and file. */
void paintPicture(const Canvas& canvas, const Box& area, Picture picture,
                  const ThemeColours& colours);

/** The window's icon: a drop on a tile. The caller destroys it. Null on failure. */
[[nodiscard]] HICON makeIcon(int size);

}  // namespace jsw::window
