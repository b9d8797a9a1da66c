#include "window/ui/Placed.h"

#include <algorithm>

namespace jsw::ui {

PlacedText placeText(const Box& box, std::string_view text, Font font, Tone tone, Side side,
                     const TextMeasure& measure) {
    PlacedText placed{box, cutToWidth(text, font, box.width(), measure), "", font, tone, side};
    if (placed.text != text) placed.full = text;
    return placed;
}

PlacedButton placeButton(int id, const Box& box, int room, std::string_view label,
                         const TextMeasure& measure) {
    const std::string plain = withoutAccessKey(label);
    if (measure.width(plain, Font::normal) <= room) return {id, box, std::string(label), ""};
    return {id, box, asLabel(cutToWidth(plain, Font::normal, room, measure)), plain};
}

int buttonHeight(const TextMeasure& measure, const Scale& scale) {
    return std::max(measure.lineHeight(Font::normal) + scale(12), scale(30));
}

int buttonWidth(std::string_view label, const TextMeasure& measure, const Scale& scale) {
    constexpr int kLeast = 92;
    const int text = measure.width(withoutAccessKey(label), Font::normal);
    return std::max(text + 2 * scale(kButtonPadding), scale(kLeast));
}

}  // namespace jsw::ui
