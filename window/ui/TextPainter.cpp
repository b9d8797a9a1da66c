#include "window/ui/TextPainter.h"

namespace jsw::window {

Colour colourOf(Tone tone, const Palette& palette) {
    switch (tone) {
        case Tone::faint:
            return palette.faintText;
        case Tone::warning:
            return palette.warning;
        case Tone::accent:
            return palette.accent;
        case Tone::badge:
            return palette.badgeText;
        case Tone::usual:
            break;
    }
    return palette.text;
}

PlacedText onCanvas(PlacedText text, const Box& origin) {
    text.box = text.box.moved(-origin.left, -origin.top);
    return text;
}

void paintText(const Canvas& canvas, const PlacedText& text, const Look& look) {
    const UINT side = text.side == Side::right    ? DT_RIGHT
                      : text.side == Side::middle ? DT_CENTER
                                                  : DT_LEFT;
    canvas.text(text.box, text.text, look.fonts.get(text.font), colourOf(text.tone, look.palette),
                side);
}

}  // namespace jsw::window
