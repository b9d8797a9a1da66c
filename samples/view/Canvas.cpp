#include "samples/view/Canvas.h"

namespace sampleview {
namespace {

int CALLBACK noteFace(const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM found) {
    *reinterpret_cast<bool*>(found) = true;
    return 0;
}

bool isInstalled(const char* face) {
    LOGFONTA wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    lstrcpynA(wanted.lfFaceName, face, LF_FACESIZE);
    bool found = false;
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExA(screen, &wanted, noteFace, reinterpret_cast<LPARAM>(&found), 0);
    ReleaseDC(nullptr, screen);
    return found;
}

/** The first installed one; "MS Shell Dlg" stands for whatever the system thinks fit. */
const char* chooseFace() {
    for (const char* face : {"Segoe UI", "Tahoma", "DejaVu Sans Condensed", "DejaVu Sans"}) {
        if (isInstalled(face)) return face;
    }
    return "MS Shell Dlg";
}

GdiObject<HFONT> makeFont(const char* face, int points, int weight, int dotsPerInch) {
    return GdiObject<HFONT>(CreateFontA(-MulDiv(points, dotsPerInch, 72), 0, 0, 0, weight, FALSE,
                                        FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                                        CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                                        DEFAULT_PITCH | FF_SWISS, face));
}

}  // namespace

Fonts makeFonts(int dotsPerInch) {
    const char* const face = chooseFace();
    return {makeFont(face, 9, FW_NORMAL, dotsPerInch), makeFont(face, 9, FW_BOLD, dotsPerInch),
            makeFont(face, 13, FW_BOLD, dotsPerInch), makeFont(face, 15, FW_BOLD, dotsPerInch)};
}

void Canvas::fill(const RECT& area, COLORREF colour) const {
    const GdiObject<HBRUSH> brush(CreateSolidBrush(colour));
    FillRect(dc_, &area, brush.get());
}

void Canvas::fillRound(const RECT& area, int radius, COLORREF colour) const {
    const GdiObject<HBRUSH> brush(CreateSolidBrush(colour));
    const Selection withBrush(dc_, brush.get());
    const Selection withoutPen(dc_, GetStockObject(NULL_PEN));
    // Without a pen, shapes end one pixel short on the right and at the bottom.
    RoundRect(dc_, area.left, area.top, area.right + 1, area.bottom + 1, 2 * radius, 2 * radius);
}

void Canvas::fillEllipse(const RECT& area, COLORREF colour) const {
    const GdiObject<HBRUSH> brush(CreateSolidBrush(colour));
    const Selection withBrush(dc_, brush.get());
    const Selection withoutPen(dc_, GetStockObject(NULL_PEN));
    Ellipse(dc_, area.left, area.top, area.right + 1, area.bottom + 1);
}

void Canvas::fillPolygon(const POINT* points, int count, COLORREF colour) const {
    const GdiObject<HBRUSH> brush(CreateSolidBrush(colour));
    const Selection withBrush(dc_, brush.get());
    const Selection withoutPen(dc_, GetStockObject(NULL_PEN));
    Polygon(dc_, points, count);
}

void Canvas::fillGradient(const RECT& area, COLORREF top, COLORREF bottom) const {
    const int height = area.bottom - area.top;
    for (int row = 0; row < height; ++row) {
        const auto mix = [&](BYTE from, BYTE to) {
            return static_cast<BYTE>(from + (to - from) * row / height);
        };
        const COLORREF colour =
            RGB(mix(GetRValue(top), GetRValue(bottom)), mix(GetGValue(top), GetGValue(bottom)),
                mix(GetBValue(top), GetBValue(bottom)));
        fill({area.left, area.top + row, area.right, area.top + row + 1}, colour);
    }
}

void Canvas::frame(const RECT& area, COLORREF colour) const {
    const GdiObject<HBRUSH> brush(CreateSolidBrush(colour));
    FrameRect(dc_, &area, brush.get());
}

void Canvas::text(RECT area, const std::string& text, HFONT font, COLORREF colour,
                  UINT format) const {
    const Selection selection(dc_, font);
    SetTextColor(dc_, colour);
    DrawTextA(dc_, text.c_str(), static_cast<int>(text.size()), &area, format | DT_NOPREFIX);
}

int Canvas::wrappedHeight(const std::string& text, HFONT font, int width) const {
    const Selection selection(dc_, font);
    RECT area{0, 0, width, 0};
    DrawTextA(dc_, text.c_str(), static_cast<int>(text.size()), &area,
              DT_WORDBREAK | DT_CALCRECT | DT_NOPREFIX);
    return area.bottom;
}

int Canvas::width(const std::string& text, HFONT font) const {
    const Selection selection(dc_, font);
    SIZE extent{};
    GetTextExtentPoint32A(dc_, text.c_str(), static_cast<int>(text.size()), &extent);
    return static_cast<int>(extent.cx);
}

}  // namespace sampleview
