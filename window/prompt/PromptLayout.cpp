#include "window/prompt/PromptLayout.h"

#include "window/prompt/PromptIds.h"

#include <algorithm>
#include <string_view>

namespace jsw::window {
namespace {

constexpr int kWidth = 460;
constexpr int kSignSize = 36;
constexpr int kGap = 16;
constexpr int kFooterMargin = 14;
constexpr int kMostLines = 6;  // of one paragraph

/** Places the text's paragraphs one below the other, wrapped; returns their lower edge. */
int placeParagraphs(std::string_view text, const Box& area, const TextMeasure& measure,
                    std::vector<PlacedText>& lines) {
    int top = area.top;
    Font font = Font::bold;  // the first says what to do, the rest explains it
    while (!text.empty()) {
        const std::string_view paragraph = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(paragraph.size() + 1, text.size()));
        const int line = measure.lineHeight(font);
        if (paragraph.empty()) {
            top += line / 2;
            font = Font::normal;
            continue;
        }
        const auto wrapped = wrapToWidth(paragraph, font, area.width(), kMostLines, measure);
        for (const std::string& part : wrapped.lines) {
            lines.push_back({{area.left, top, area.right, top + line},
                             part,
                             "",
                             font,
                             Tone::usual,
                             Side::left});
            top += line;
        }
    }
    return top;
}

}  // namespace

PromptLayout layoutPrompt(const std::string& printer, const std::string& text,
                          const std::string& note, const PromptTexts& texts,
                          const TextMeasure& measure, const Scale& scale) {
    PromptLayout layout;
    const int margin = scale(kMargin);
    const int line = measure.lineHeight(Font::normal);
    const int right = scale(kWidth) - margin;
    layout.sign = {margin, margin, margin + scale(kSignSize), margin + scale(kSignSize)};
    Box area{layout.sign.right + scale(kGap), margin, right, 0};

    layout.printer = placeText({area.left, area.top, right, area.top + line}, printer, Font::normal,
                               Tone::faint, Side::left, measure);
    area.top += line + scale(4);
    area.bottom = placeParagraphs(text, area, measure, layout.textLines);
    layout.text = area;
    const int noteTop = area.bottom + scale(10);
    layout.note = placeText({area.left, noteTop, right, noteTop + line}, note, Font::normal,
                            Tone::accent, Side::left, measure);

    const int button = buttonHeight(measure, scale);
    const int footerTop = std::max(layout.note.box.bottom, layout.sign.bottom) + scale(kGap);
    layout.size = {scale(kWidth), footerTop + button + 2 * scale(kFooterMargin)};
    layout.footer = {0, footerTop, layout.size.width, layout.size.height};
    const int top = footerTop + scale(kFooterMargin);
    const int most = (right - margin - scale(kButtonGap)) / 2;
    const auto place = [&](int id, const std::string& label, int end) {
        const int width = std::min(buttonWidth(label, measure, scale), most);
        layout.buttons.push_back(
            placePushButton(id, {end - width, top, end, top + button}, label, measure, scale));
        return end - width - scale(kButtonGap);
    };
    const int left = place(JSW_LEGACY_CANCEL, texts.cancelLabel, right);
    place(JSW_LEGACY_CONTINUE, texts.continueLabel, left);
    return layout;
}

}  // namespace jsw::window
