/**
 * @file Pictures.h
 * The picture at the side of a billboard: a built-in drawing, or a bitmap from a file.
 */
#pragma once

#include "samples/view/BillboardContent.h"
#include "samples/view/Canvas.h"

#include <string>

namespace sampleview {

/** The two colours of a theme: of the side panel's top and bottom, and of the title. */
struct ThemeColours {
    COLORREF light;
    COLORREF dark;
};

[[nodiscard]] ThemeColours themeColours(Theme theme);

/** Draws the built-in picture in white into the middle of the area; nothing for none and file. */
void paintPicture(const Canvas& canvas, const RECT& area, Picture picture, COLORREF accent);

/** Loads a .bmp file; null when it cannot be read or is too large. */
[[nodiscard]] GdiObject<HBITMAP> loadPicture(const std::string& path);

/** Draws the bitmap as large as the area allows, keeping its proportions. */
void paintBitmap(const Canvas& canvas, const RECT& area, HBITMAP bitmap);

}  // namespace sampleview
