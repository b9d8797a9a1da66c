#include "window/ui/Placed.h"

#include <algorithm>
#include <numeric>

namespace jsw::window {
namespace {

constexpr int kLeastPadding = 12; /**< left and right of a label, if there is little room */

}  // namespace

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

int leastButtonWidth(std::string_view label, const TextMeasure& measure, const Scale& scale) {
    return measure.width(withoutAccessKey(label), Font::normal) + 2 * scale(kLeastPadding);
}

std::vector<int> buttonWidths(const std::vector<std::string>& labels, int room,
                              const TextMeasure& measure, const Scale& scale) {
    const auto fit = [&](const auto& widthOf) {
        std::vector<int> widths;
        widths.reserve(labels.size());
        for (const std::string& label : labels) widths.push_back(widthOf(label, measure, scale));
        const int left = room - std::accumulate(widths.begin(), widths.end(), 0);
        return left < 0 ? std::vector<int>() : widths;
    };
    if (auto usual = fit(buttonWidth); !usual.empty()) return usual;
    const int count = std::max(static_cast<int>(labels.size()), 1);
    auto least = fit(leastButtonWidth);
    if (least.empty()) return std::vector<int>(labels.size(), std::max(room / count, 1));
    const int rest = room - std::accumulate(least.begin(), least.end(), 0);
    for (int& width : least) width += rest / count;
    return least;
}

PlacedButton placePushButton(int id, const Box& box, std::string_view label,
                             const TextMeasure& measure, const Scale& scale) {
    return placeButton(id, box, box.width() - 2 * scale(kLeastPadding), label, measure);
}

}  // namespace jsw::window
