/**
 * @file Canvas.h
 * Draws smooth shapes and text in memory, so that nothing flickers.
 */
#pragma once

#include "window/ui/Colours.h"
#include "window/ui/Fonts.h"
#include "window/ui/Gdi.h"
#include "window/ui/Geometry.h"
#include "window/ui/Raster.h"
#include "window/ui/ScaledPicture.h"

#include <windows.h>

#include <string_view>
#include <utility>

namespace jsw::window {

[[nodiscard]] constexpr COLORREF rgb(Colour colour) {
    return RGB(colour.red, colour.green, colour.blue);
}
[[nodiscard]] inline RECT rect(const Box& box) {
    return {box.left, box.top, box.right, box.bottom};
}
[[nodiscard]] inline Box boxOf(const RECT& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

/** A picture in memory to draw on; created by paintBuffered. */
class Canvas {
  public:
    /** @param dc the picture of the pixels is selected into it */
    Canvas(HDC dc, const Pixels& pixels) : dc_(dc), pixels_(pixels) { SetBkMode(dc, TRANSPARENT); }

    void fill(const Box& box, Colour colour) const;
    void fillRound(const Box& box, int radius, Colour colour) const;
    /** A line of this thickness along the inner edge of the box. */
    void frameRound(const Box& box, int radius, int thickness, Colour colour) const;
    /** Fills rows with colours from top to bottom; the left corners are round. */
    void fillGradient(const Box& box, int radius, Colour top, Colour bottom) const;
    /** Fills the points for which inside(x, y) holds. */
    template <typename Inside>
    void fillInside(const Box& bounds, Inside&& inside, Colour colour) const {
        GdiFlush();
        fillShape(pixels_, bounds, std::forward<Inside>(inside), [&](int) { return colour; });
    }
    /** Scaled to the box. */
    void picture(const Box& box, const PicturePixels& picture) const {
        GdiFlush();
        drawScaled(pixels_, box, picture);
    }
    /** One line, with DrawText's DT_LEFT, DT_RIGHT or DT_CENTER; "&" has no special meaning. */
    void text(const Box& box, std::string_view text, HFONT font, Colour colour, UINT side) const;
    /** The same for a label, whose "&" underlines a letter if underline is set. */
    void label(const Box& box, std::string_view text, HFONT font, Colour colour, UINT side,
               bool underline) const;
    [[nodiscard]] HDC dc() const { return dc_; }

  private:
    void draw(const Box& box, std::string_view text, HFONT font, Colour colour, UINT format) const;

    HDC dc_;
    Pixels pixels_;
};

/** A bitmap with accessible pixels. */
class MemoryBitmap {
  public:
    MemoryBitmap(HDC like, Size size);
    [[nodiscard]] HBITMAP bitmap() const { return bitmap_.get(); }
    [[nodiscard]] const Pixels& pixels() const { return pixels_; }

  private:
    GdiObject<HBITMAP> bitmap_;
    Pixels pixels_;
};

/** Calls paint(canvas, box) on a picture in memory and copies it to the area of the context. */
template <typename Paint>
void paintBuffered(HDC target, const RECT& area, Paint&& paint) {
    const Size size{static_cast<int>(area.right - area.left),
                    static_cast<int>(area.bottom - area.top)};
    const MemoryBitmap picture(target, size);
    const MemoryDc memory(target);
    if (!picture.bitmap() || !memory.get()) return;
    const Selection selection(memory.get(), picture.bitmap());
    paint(Canvas(memory.get(), picture.pixels()), Box{0, 0, size.width, size.height});
    BitBlt(target, area.left, area.top, size.width, size.height, memory.get(), 0, 0, SRCCOPY);
}

}  // namespace jsw::window
