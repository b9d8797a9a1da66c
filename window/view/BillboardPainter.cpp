#include "window/view/BillboardPainter.h"

#include <algorithm>

namespace jsw::window {
namespace {

constexpr int kCardRadius = 6;

void paintPanel(const Canvas& canvas, const Box& origin, const Billboard& billboard,
                const PageLayout& layout, const Look& look) {
    const Box panel = layout.panel.moved(-origin.left, -origin.top);
    const Box inner = layout.picture.moved(-origin.left, -origin.top);
    if (panel.empty()) return;
    const ThemeColours colours = themeColours(billboard.page.theme, look.palette);
    canvas.fillGradient(panel, look.scale(kCardRadius), colours.light, colours.dark);
    if (inner.empty()) return;
    billboard.picture.paint(canvas, inner);
    paintPicture(canvas, inner, billboard.page.picture, colours);
}

}  // namespace

void paintBillboard(const Canvas& canvas, const Box& origin, const Billboard& billboard,
                    const PageLayout& layout, const Look& look) {
    const Box card = layout.card.moved(-origin.left, -origin.top);
    const int thin = std::max(look.scale(1), 1);
    const int radius = look.scale(kCardRadius);
    canvas.fill(card, look.palette.ground);
    canvas.fillRound(card, radius, look.palette.card);
    const Colour title = themeColours(billboard.page.theme, look.palette).title;
    for (const Box& dot : layout.dots) {
        const Box place = dot.moved(-origin.left, -origin.top);
        canvas.fillRound(place, place.height(), title);
    }
    for (const PlacedText& line : layout.lines) {
        const PlacedText text = onCanvas(line, origin);
        if (text.tone == Tone::accent) {
            canvas.text(text.box, text.text, look.fonts.get(text.font), title, DT_LEFT);
        } else {
            paintText(canvas, text, look);
        }
    }
    paintInk(canvas, origin, layout.ink, look);
    // Omits what is scrolled out of its area.
    const Box area = layout.textArea.moved(-origin.left, -origin.top);
    canvas.fill({area.left, card.top, area.right, area.top}, look.palette.card);
    canvas.fill({area.left, area.bottom, area.right, card.bottom}, look.palette.card);
    paintPanel(canvas, origin, billboard, layout, look);
    canvas.frameRound(card, radius, thin, look.palette.line);
}

}  // namespace jsw::window
