#include "window/view/Pictures.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace jsw::window {
namespace {

constexpr Colour kWhite{255, 255, 255};
constexpr Colour kShade{222, 229, 238};

/** Converts a drawing's coordinates, 100 by 100 units, to its area. */
class Drawing {
  public:
    Drawing(const Canvas& canvas, const Box& area)
        : canvas_(canvas), size_(std::min(area.width(), area.height())) {
        left_ = (area.left + area.right - size_) / 2;
        top_ = (area.top + area.bottom - size_) / 2;
    }

    void box(int left, int top, int right, int bottom, int radius, Colour colour) const {
        canvas_.fillRound(area(left, top, right, bottom), scaled(radius), colour);
    }
    void ellipse(int left, int top, int right, int bottom, Colour colour) const {
        const double middleX = (left + right) / 2.0;
        const double middleY = (top + bottom) / 2.0;
        const double halfX = (right - left) / 2.0;
        const double halfY = (bottom - top) / 2.0;
        fill(left, top, right, bottom, colour, [=](double x, double y) {
            const double dx = (x - middleX) / halfX;
            const double dy = (y - middleY) / halfY;
            return dx * dx + dy * dy <= 1;
        });
    }
    /** Fills the points of the units' square for which inside(x, y) holds. */
    template <typename Inside>
    void fill(int left, int top, int right, int bottom, Colour colour, Inside&& inside) const {
        canvas_.fillInside(
            area(left, top, right, bottom),
            [&](double x, double y) {
                return inside((x - left_) * 100 / size_, (y - top_) * 100 / size_);
            },
            colour);
    }

  private:
    [[nodiscard]] int scaled(int units) const { return units * size_ / 100; }
    [[nodiscard]] Box area(int left, int top, int right, int bottom) const {
        return {left_ + scaled(left), top_ + scaled(top), left_ + scaled(right),
                top_ + scaled(bottom)};
    }

    const Canvas& canvas_;
    int size_;
    int left_;
    int top_;
};

void drawPrinter(const Drawing& drawing, const ThemeColours& colours) {
    drawing.box(26, 8, 74, 42, 2, colours.paper);
    drawing.box(8, 34, 92, 72, 7, colours.shade);
    drawing.box(8, 34, 92, 52, 7, colours.paper);
    drawing.ellipse(78, 40, 84, 46, colours.accent);
    drawing.box(20, 60, 80, 66, 2, colours.accent);
    drawing.box(26, 62, 74, 94, 2, colours.paper);
    for (int line = 0; line < 3; ++line) {
        drawing.box(33, 71 + 7 * line, line == 2 ? 54 : 67, 74 + 7 * line, 1, colours.accent);
    }
}

/** A circle at the bottom, with two tangents that meet in the tip. */
bool isInDrop(double x, double y) {
    constexpr double kMiddle = 64;
    constexpr double kRadius = 27;
    constexpr double kTip = 4;
    const double dx = std::abs(x - 50);
    const double dy = y - kMiddle;
    if (dx * dx + dy * dy <= kRadius * kRadius) return true;
    const double sine = kRadius / (kMiddle - kTip);
    const double touch = kMiddle - kRadius * sine;
    const double widest = kRadius * std::sqrt(1 - sine * sine);
    return y >= kTip && y <= touch && dx <= widest * (y - kTip) / (touch - kTip);
}

void drawDrop(const Drawing& drawing, const ThemeColours& colours) {
    drawing.fill(20, 4, 80, 96, colours.paper, isInDrop);
    drawing.fill(30, 52, 62, 88, colours.tint, [](double x, double y) {
        const auto inCircle = [&](double middleX, double middleY, double radius) {
            const double dx = x - middleX;
            const double dy = y - middleY;
            return dx * dx + dy * dy <= radius * radius;
        };
        return inCircle(50, 64, 19) && !inCircle(54, 61, 19);
    });
}

void drawBulb(const Drawing& drawing, const ThemeColours& colours) {
    drawing.ellipse(22, 6, 78, 62, colours.paper);
    drawing.box(36, 52, 64, 72, 4, colours.paper);
    drawing.box(48, 30, 52, 68, 1, colours.accent);
    drawing.fill(40, 28, 60, 46, colours.accent, [](double x, double y) {
        return y >= 30 && y <= 44 && std::abs(x - 50) <= (44 - y) * 10 / 14;
    });
    drawing.box(36, 76, 64, 81, 2, colours.paper);
    drawing.box(36, 84, 64, 89, 2, colours.paper);
    drawing.box(43, 92, 57, 97, 2, colours.paper);
}

void drawCartridges(const Drawing& drawing, const ThemeColours& colours) {
    for (const int left : {10, 54}) {
        drawing.box(left + 8, 12, left + 28, 24, 3, colours.shade);
        drawing.box(left, 20, left + 36, 86, 5, colours.paper);
        drawing.box(left + 7, 34, left + 29, 78, 3, colours.accent);
        drawing.box(left + 7, left == 10 ? 34 : 56, left + 29, left == 10 ? 46 : 66, 3,
                    colours.shade);
    }
}

}  // namespace

ThemeColours themeColours(Theme theme, const Palette& palette) {
    struct Entry {
        Theme theme;
        Colour light;
        Colour dark;
    };
    constexpr Entry kEntries[] = {
        {Theme::blue, {72, 148, 214}, {20, 86, 156}},
        {Theme::green, {78, 172, 128}, {18, 104, 78}},
        {Theme::amber, {240, 168, 76}, {176, 84, 16}},
        {Theme::violet, {146, 122, 208}, {80, 56, 150}},
    };
    const auto* const entry = std::find_if(std::begin(kEntries), std::end(kEntries),
                                           [&](const Entry& each) { return each.theme == theme; });
    switch (palette.appearance) {
        case Appearance::dark: {
            // Less bright, and a title light enough for a dark background.
            const Colour dark = mixed(entry->dark, palette.card, 60);
            return {mixed(entry->light, palette.card, 70),
                    dark,
                    mixed(entry->light, kWhite, 90),
                    kWhite,
                    kShade,
                    mixed(dark, kWhite, 90),
                    dark};
        }
        case Appearance::highContrast:
            // A panel in the text's colour, with the picture cut out of it.
            return {palette.text, palette.text, palette.text, palette.card,
                    palette.card, palette.text, palette.text};
        case Appearance::light:
            break;
    }
    return {entry->light, entry->dark, entry->dark, kWhite, kShade, mixed(entry->dark, kWhite, 90),
            entry->dark};
}

void paintPicture(const Canvas& canvas, const Box& area, Picture picture,
                  const ThemeColours& colours) {
    const Drawing drawing(canvas, area);
    switch (picture) {
        case Picture::printer:
            return drawPrinter(drawing, colours);
        case Picture::drop:
            return drawDrop(drawing, colours);
        case Picture::bulb:
            return drawBulb(drawing, colours);
        case Picture::ink:
            return drawCartridges(drawing, colours);
        case Picture::none:
        case Picture::file:
            return;
    }
}

HICON makeIcon(int size) {
    const MemoryDc dc(nullptr);
    const MemoryBitmap picture(dc.get(), {size, size});
    const GdiObject<HBITMAP> noMask(CreateBitmap(size, size, 1, 1, nullptr));
    if (!dc.get() || !picture.bitmap() || !noMask.get()) return nullptr;
    const Box box{0, 0, size, size};
    const RoundBox tile(box, size / 5.0);
    ThemeColours colours = themeColours(Theme::blue, lightPalette());
    colours.accent = lightPalette().accent;
    {
        const Selection selection(dc.get(), picture.bitmap());
        const Canvas canvas(dc.get(), picture.pixels());
        canvas.fill(box, colours.accent);
        paintPicture(canvas, box.inset(size / 10, size / 10), Picture::drop, colours);
        GdiFlush();
    }
    setOpacity(picture.pixels(), tile);
    ICONINFO info{TRUE, 0, 0, noMask.get(), picture.bitmap()};
    return CreateIconIndirect(&info);
}

}  // namespace jsw::window
