#include "window/prompt/PromptLayout.h"

#include "window/prompt/ControlIds.h"

#include <algorithm>
#include <string_view>

namespace jsw::prompt {

namespace {

using ui::Box;
using ui::Font;
using ui::Side;
using ui::Tone;

constexpr int kWidth = 460;
constexpr int kSignSize = 36;
constexpr int kGap = 16;
constexpr int kFooterMargin = 14;
constexpr int kMostLines = 6;  // of one paragraph

/** Places the text's paragraphs one below the other, wrapped; returns their lower edge. */
int placeParagraphs(std::string_view text, const Box& area, const ui::TextMeasure& measure,
                    std::vector<ui::PlacedText>& lines) {
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
        const auto wrapped = ui::wrapToWidth(paragraph, font, area.width(), kMostLines, measure);
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
                          const std::string& note, const Strings& strings,
                          const ui::TextMeasure& measure, const ui::Scale& scale) {
    PromptLayout layout;
    const int margin = scale(ui::kMargin);
    const int line = measure.lineHeight(Font::normal);
    const int right = scale(kWidth) - margin;
    layout.sign = {margin, margin, margin + scale(kSignSize), margin + scale(kSignSize)};
    Box area{layout.sign.right + scale(kGap), margin, right, 0};

    layout.printer = ui::placeText({area.left, area.top, right, area.top + line}, printer,
                                   Font::normal, Tone::faint, Side::left, measure);
    area.top += line + scale(4);
    area.bottom = placeParagraphs(text, area, measure, layout.textLines);
    layout.text = area;
    const int noteTop = area.bottom + scale(10);
    layout.note = ui::placeText({area.left, noteTop, right, noteTop + line}, note, Font::normal,
                                Tone::accent, Side::left, measure);

    const int button = ui::buttonHeight(measure, scale);
    const int footerTop = std::max(layout.note.box.bottom, layout.sign.bottom) + scale(kGap);
    layout.size = {scale(kWidth), footerTop + button + 2 * scale(kFooterMargin)};
    layout.footer = {0, footerTop, layout.size.width, layout.size.height};
    const int top = footerTop + scale(kFooterMargin);
    const int most = (right - margin - scale(ui::kButtonGap)) / 2;
    const auto place = [&](int id, const char* label, int end) {
        const int width = std::min(ui::buttonWidth(label, measure, scale), most);
        layout.buttons.push_back(
            ui::placePushButton(id, {end - width, top, end, top + button}, label, measure, scale));
        return end - width - scale(ui::kButtonGap);
    };
    const int left = place(JSW_LEGACY_CANCEL, strings.cancelLabel, right);
    place(JSW_LEGACY_CONTINUE, strings.continueLabel, left);
    return layout;
}

}  // namespace jsw::prompt
