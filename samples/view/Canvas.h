/**
 * @file Canvas.h
 * Owners of GDI objects, and drawing into a control without flicker.
 */
#pragma once

#include <windows.h>

#include <string>
#include <utility>

namespace sampleview {

/** Owns a GDI object (font, brush, bitmap, ...); null when there is none. */
template <typename Handle>
class GdiObject {
  public:
    GdiObject() = default;
    explicit GdiObject(Handle handle) : handle_(handle) {}
    GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    GdiObject& operator=(GdiObject&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~GdiObject() {
        if (handle_) DeleteObject(handle_);
    }
    [[nodiscard]] Handle get() const { return handle_; }

  private:
    Handle handle_ = nullptr;
};

/** Selects an object into a device context for the length of a block. */
class Selection {
  public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    ~Selection() { SelectObject(dc_, previous_); }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

  private:
    HDC dc_;
    HGDIOBJ previous_;
};

/** A device context in memory; null when there is not enough. */
class MemoryDc {
  public:
    explicit MemoryDc(HDC like) : dc_(CreateCompatibleDC(like)) {}
    ~MemoryDc() {
        if (dc_) DeleteDC(dc_);
    }
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;
    [[nodiscard]] HDC get() const { return dc_; }

  private:
    HDC dc_;
};

/** The window's fonts, in a face that this system has. */
struct Fonts {
    GdiObject<HFONT> normal;
    GdiObject<HFONT> bold;
    GdiObject<HFONT> heading;
    GdiObject<HFONT> title;
};

/** Makes the fonts for a screen of this many dots per inch. */
[[nodiscard]] Fonts makeFonts(int dotsPerInch);

/** Draws with plain values; the text functions leave the background as it is. */
class Canvas {
  public:
    explicit Canvas(HDC dc) : dc_(dc) { SetBkMode(dc, TRANSPARENT); }

    void fill(const RECT& area, COLORREF colour) const;
    void fillRound(const RECT& area, int radius, COLORREF colour) const;
    void fillEllipse(const RECT& area, COLORREF colour) const;
    void fillPolygon(const POINT* points, int count, COLORREF colour) const;
    /** From one colour at the top to the other at the bottom. */
    void fillGradient(const RECT& area, COLORREF top, COLORREF bottom) const;
    void frame(const RECT& area, COLORREF colour) const;
    /** Draws text with DrawText's format flags. */
    void text(RECT area, const std::string& text, HFONT font, COLORREF colour, UINT format) const;
    /** Height of the text wrapped to this width. */
    [[nodiscard]] int wrappedHeight(const std::string& text, HFONT font, int width) const;
    /** Width of the text in one line. */
    [[nodiscard]] int width(const std::string& text, HFONT font) const;
    [[nodiscard]] HDC dc() const { return dc_; }

  private:
    HDC dc_;
};

/** Calls paint(canvas, area) on a picture in memory and copies it into the area of the context. */
template <typename Paint>
void paintBuffered(HDC target, const RECT& area, Paint&& paint) {
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    const GdiObject<HBITMAP> bitmap(CreateCompatibleBitmap(target, width, height));
    const MemoryDc memory(target);
    if (!bitmap.get() || !memory.get()) return;
    const Selection selection(memory.get(), bitmap.get());
    paint(Canvas(memory.get()), RECT{0, 0, width, height});
    BitBlt(target, area.left, area.top, width, height, memory.get(), 0, 0, SRCCOPY);
}

/** The colours of the window. */
namespace colours {
inline constexpr COLORREF kHeader = RGB(255, 255, 255);
inline constexpr COLORREF kBody = RGB(244, 246, 249);
inline constexpr COLORREF kLine = RGB(208, 214, 222);
inline constexpr COLORREF kText = RGB(32, 38, 46);
inline constexpr COLORREF kFaintText = RGB(92, 102, 114);
inline constexpr COLORREF kSimulated = RGB(255, 224, 130);
inline constexpr COLORREF kInk = RGB(38, 112, 184);
inline constexpr COLORREF kLowInk = RGB(208, 72, 48);
inline constexpr COLORREF kBarGround = RGB(222, 227, 233);
}  // namespace colours

}  // namespace sampleview
