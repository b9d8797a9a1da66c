#include "samples/view/Pictures.h"

#include "samples/view/BillboardFile.h"

#include <algorithm>

namespace sampleview {
namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kShade = RGB(226, 232, 240);

/** Translates the coordinates of a drawing of 100 by 100 units to the area it goes to. */
class Drawing {
  public:
    Drawing(const Canvas& canvas, const RECT& area)
        : canvas_(canvas), size_(std::min(area.right - area.left, area.bottom - area.top)) {
        left_ = (area.left + area.right - size_) / 2;
        top_ = (area.top + area.bottom - size_) / 2;
    }

    void box(int left, int top, int right, int bottom, int radius, COLORREF colour) const {
        canvas_.fillRound(area(left, top, right, bottom), static_cast<int>(scaled(radius)), colour);
    }
    void ellipse(int left, int top, int right, int bottom, COLORREF colour) const {
        canvas_.fillEllipse(area(left, top, right, bottom), colour);
    }
    void triangle(POINT first, POINT second, POINT third, COLORREF colour) const {
        const POINT points[] = {at(first), at(second), at(third)};
        canvas_.fillPolygon(points, 3, colour);
    }

  private:
    [[nodiscard]] LONG scaled(LONG units) const { return units * size_ / 100; }
    [[nodiscard]] POINT at(POINT point) const {
        return {left_ + scaled(point.x), top_ + scaled(point.y)};
    }
    [[nodiscard]] RECT area(int left, int top, int right, int bottom) const {
        const POINT first = at({left, top});
        const POINT last = at({right, bottom});
        return {first.x, first.y, last.x, last.y};
    }

    const Canvas& canvas_;
    LONG size_;
    LONG left_;
    LONG top_;
};

void drawPrinter(const Drawing& drawing, COLORREF accent) {
    drawing.box(26, 8, 74, 42, 2, kWhite);
    drawing.box(8, 34, 92, 72, 7, kShade);
    drawing.box(8, 34, 92, 52, 7, kWhite);
    drawing.ellipse(78, 40, 84, 46, accent);
    drawing.box(20, 60, 80, 66, 2, accent);
    drawing.box(26, 62, 74, 94, 2, kWhite);
    for (int line = 0; line < 3; ++line) {
        drawing.box(33, 71 + 7 * line, line == 2 ? 54 : 67, 74 + 7 * line, 1, accent);
    }
}

void drawDrop(const Drawing& drawing, COLORREF accent) {
    drawing.ellipse(24, 38, 76, 92, kWhite);
    drawing.triangle({50, 4}, {27, 54}, {73, 54}, kWhite);
    drawing.ellipse(34, 62, 48, 82, accent);
    drawing.ellipse(38, 60, 52, 80, kWhite);
}

void drawBulb(const Drawing& drawing, COLORREF accent) {
    drawing.ellipse(22, 6, 78, 62, kWhite);
    drawing.box(36, 52, 64, 72, 4, kWhite);
    drawing.box(48, 30, 52, 68, 1, accent);
    drawing.triangle({40, 30}, {60, 30}, {50, 44}, accent);
    drawing.box(36, 76, 64, 81, 2, kWhite);
    drawing.box(36, 84, 64, 89, 2, kWhite);
    drawing.box(43, 92, 57, 97, 2, kWhite);
}

void drawCartridges(const Drawing& drawing, COLORREF accent) {
    for (const int left : {10, 54}) {
        drawing.box(left + 8, 12, left + 28, 24, 3, kShade);
        drawing.box(left, 20, left + 36, 86, 5, kWhite);
        drawing.box(left + 7, 34, left + 29, 78, 3, accent);
        drawing.box(left + 7, left == 10 ? 34 : 56, left + 29, left == 10 ? 46 : 66, 3, kShade);
    }
}

}  // namespace

ThemeColours themeColours(Theme theme) {
    switch (theme) {
        case Theme::green:
            return {RGB(86, 176, 128), RGB(24, 110, 84)};
        case Theme::amber:
            return {RGB(242, 170, 76), RGB(190, 98, 24)};
        case Theme::violet:
            return {RGB(148, 122, 208), RGB(82, 58, 150)};
        case Theme::blue:
            break;
    }
    return {RGB(76, 154, 214), RGB(24, 84, 150)};
}

void paintPicture(const Canvas& canvas, const RECT& area, Picture picture, COLORREF accent) {
    const Drawing drawing(canvas, area);
    switch (picture) {
        case Picture::printer:
            return drawPrinter(drawing, accent);
        case Picture::drop:
            return drawDrop(drawing, accent);
        case Picture::bulb:
            return drawBulb(drawing, accent);
        case Picture::ink:
            return drawCartridges(drawing, accent);
        case Picture::none:
        case Picture::file:
            return;
    }
}

GdiObject<HBITMAP> loadPicture(const std::string& path) {
    if (!isPictureFileAcceptable(path)) return {};
    return GdiObject<HBITMAP>(static_cast<HBITMAP>(LoadImageA(
        nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION)));
}

void paintBitmap(const Canvas& canvas, const RECT& area, HBITMAP bitmap) {
    BITMAP info{};
    if (!GetObjectA(bitmap, sizeof(info), &info) || info.bmWidth < 1 || info.bmHeight < 1) return;
    const LONG width = area.right - area.left;
    const LONG height = area.bottom - area.top;
    const bool wide = info.bmWidth * height > info.bmHeight * width;
    const LONG shownWidth = wide ? width : info.bmWidth * height / info.bmHeight;
    const LONG shownHeight = wide ? info.bmHeight * width / info.bmWidth : height;

    const MemoryDc source(canvas.dc());
    if (!source.get()) return;
    const Selection selection(source.get(), bitmap);
    SetStretchBltMode(canvas.dc(), COLORONCOLOR);
    StretchBlt(canvas.dc(), area.left + (width - shownWidth) / 2,
               area.top + (height - shownHeight) / 2, static_cast<int>(shownWidth),
               static_cast<int>(shownHeight), source.get(), 0, 0, info.bmWidth, info.bmHeight,
               SRCCOPY);
}

}  // namespace sampleview
