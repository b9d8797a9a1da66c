#include "samples/view/BillboardPainter.h"

#include "samples/view/Pictures.h"

#include <algorithm>

namespace sampleview {
namespace {

/** Height of each of the two rows of large ink bars, in text lines. */
constexpr int kInkRowLines = 3;

/** Draws one paragraph, or an item with its dot, and returns where the next one begins. */
LONG paintParagraph(const Canvas& canvas, const RECT& area, const std::string& paragraph,
                    const Fonts& fonts, COLORREF dotColour) {
    const bool isItem = paragraph.starts_with("- ");
    const std::string text = isItem ? paragraph.substr(2) : paragraph;
    const int line = canvas.wrappedHeight("X", fonts.normal.get(), area.right - area.left);
    RECT place = area;
    if (isItem) {
        const LONG dot = line / 3;
        canvas.fillEllipse(
            {area.left + dot, area.top + dot, area.left + 2 * dot, area.top + 2 * dot}, dotColour);
        place.left += line;
    }
    canvas.text(place, text, fonts.normal.get(), colours::kText, DT_WORDBREAK);
    const int height = canvas.wrappedHeight(text, fonts.normal.get(), place.right - place.left);
    return area.top + height + line / 2;
}

void paintPanel(const Canvas& canvas, const RECT& panel, const Billboard& billboard, int margin) {
    const ThemeColours colours = themeColours(billboard.page.theme);
    canvas.fillGradient(panel, colours.light, colours.dark);
    RECT inner = panel;
    InflateRect(&inner, -margin, -margin);
    if (billboard.bitmap.get()) {
        paintBitmap(canvas, inner, billboard.bitmap.get());
    } else {
        InflateRect(&inner, -margin / 2, -margin / 2);
        paintPicture(canvas, inner, billboard.page.picture, colours.dark);
    }
}

}  // namespace

void paintBillboard(const Canvas& canvas, const RECT& area, const Billboard& billboard,
                    const InkDisplay& ink, const Fonts& fonts, int unit) {
    const auto pixels = [unit](int value) { return MulDiv(value, unit, 96); };
    const int margin = pixels(kPageMargin);
    const Page& page = billboard.page;
    canvas.fill(area, colours::kHeader);
    RECT panel = area;
    panel.right = panel.left + pixels(kPanelWidth);
    paintPanel(canvas, panel, billboard, margin);

    RECT text{panel.right + margin, area.top + margin, area.right - margin, area.bottom - margin};
    if (!page.buttons.empty()) text.bottom -= pixels(kPageButtonHeight) + margin / 2;
    const int width = text.right - text.left;
    canvas.text(text, page.title, fonts.title.get(), themeColours(page.theme).dark, DT_WORDBREAK);
    text.top += canvas.wrappedHeight(page.title, fonts.title.get(), width) + margin / 2;

    const GdiObject<HRGN> clip(CreateRectRgnIndirect(&text));
    SelectClipRgn(canvas.dc(), clip.get());
    for (const std::string& paragraph : page.paragraphs) {
        text.top = paintParagraph(canvas, text, paragraph, fonts, themeColours(page.theme).dark);
    }
    if (page.picture == Picture::ink && text.top < text.bottom) {
        const int line = canvas.wrappedHeight("X", fonts.normal.get(), width);
        RECT bars = text;
        bars.bottom = std::min(text.bottom, bars.top + 2 * kInkRowLines * line);
        paintInk(canvas, bars, ink, fonts);
    }
    SelectClipRgn(canvas.dc(), nullptr);
    canvas.frame(area, colours::kLine);
}

}  // namespace sampleview
