/**
 * @file Pictures.h
 * The picture at the side of a billboard: a built-in drawing, or a bitmap from a file.
 */
#pragma once

#include "window/ui/Canvas.h"
#include "window/view/BillboardContent.h"

#include <string>

namespace jsw::view {

using ui::Box;
using ui::Canvas;
using ui::Colour;
using ui::GdiObject;
using ui::Palette;

/** The colours of a theme: of the side panel's top and bottom, and of the title. */
struct ThemeColours {
    Colour light;
    Colour dark;
    Colour title;
};

[[nodiscard]] ThemeColours themeColours(Theme theme, const Palette& palette);

/** Draws the built-in picture in white into the middle of the area; nothing for none and file. */
void paintPicture(const Canvas& canvas, const Box& area, Picture picture, Colour accent);

/** The window's icon: a drop on a tile. The caller destroys it; null when there is none. */
[[nodiscard]] HICON makeIcon(int size);

/** Loads a .bmp file; null when it cannot be read or is too large. */
[[nodiscard]] GdiObject<HBITMAP> loadPicture(const std::string& path);

/** Draws the bitmap as large as the area allows, keeping its proportions. */
void paintBitmap(const Canvas& canvas, const Box& area, HBITMAP bitmap);

}  // namespace jsw::view
