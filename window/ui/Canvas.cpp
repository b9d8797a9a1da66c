#include "window/ui/Canvas.h"

#include "common/Encoding.h"

namespace jsw::window {

void Canvas::fill(const Box& box, Colour colour) const {
    const GdiObject<HBRUSH> brush(CreateSolidBrush(rgb(colour)));
    const RECT area = rect(box);
    FillRect(dc_, &area, brush.get());
}

void Canvas::fillRound(const Box& box, int radius, Colour colour) const {
    fillInside(box, RoundBox(box, radius), colour);
}

void Canvas::frameRound(const Box& box, int radius, int thickness, Colour colour) const {
    const RoundBox outer(box, radius);
    const RoundBox inner(box.inset(thickness, thickness), std::max(radius - thickness, 0));
    fillInside(
        box, [&](double x, double y) { return outer(x, y) && !inner(x, y); }, colour);
}

void Canvas::fillGradient(const Box& box, int radius, Colour top, Colour bottom) const {
    GdiFlush();
    // Round corners on the left only: the box extends to the right.
    const RoundBox inside({box.left, box.top, box.right + radius, box.bottom}, radius);
    const int height = std::max(box.height(), 1);
    fillShape(pixels_, box, inside,
              [&](int y) { return mixed(top, bottom, (y - box.top) * 255 / height); });
}

void Canvas::text(const Box& box, std::string_view text, HFONT font, Colour colour,
                  UINT side) const {
    draw(box, text, font, colour, side | DT_NOPREFIX);
}

void Canvas::label(const Box& box, std::string_view text, HFONT font, Colour colour, UINT side,
                   bool underline) const {
    if (underline) return draw(box, text, font, colour, side);
    draw(box, withoutAccessKey(text), font, colour, side | DT_NOPREFIX);
}

void Canvas::draw(const Box& box, std::string_view text, HFONT font, Colour colour,
                  UINT format) const {
    const Selection selection(dc_, font);
    SetTextColor(dc_, rgb(colour));
    const std::wstring letters = common::wide(text);
    RECT area = rect(box);
    const UINT direction = readsRightToLeft(text) ? static_cast<UINT>(DT_RTLREADING) : 0U;
    DrawTextW(dc_, letters.c_str(), static_cast<int>(letters.size()), &area,
              format | direction | DT_SINGLELINE | DT_VCENTER | DT_NOCLIP);
}

MemoryBitmap::MemoryBitmap(HDC like, Size size) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;  // top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    bitmap_ = GdiObject<HBITMAP>(CreateDIBSection(like, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (bitmap_.get()) pixels_ = {static_cast<std::uint32_t*>(bits), size.width, size.height};
}

}  // namespace jsw::window
