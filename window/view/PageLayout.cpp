#include "window/view/PageLayout.h"

#include "window/view/ControlIds.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace jsw::view {
namespace {

constexpr int kPanelWidth = 150;
constexpr int kPageMargin = 18;
constexpr int kPicturePadding = 26;
constexpr int kParagraphGap = 7;
constexpr int kItemIndent = 15;
constexpr int kMostTitleLines = 2;

/** Puts words, and links that stay in one piece, one after another into lines. */
class TextFlow {
  public:
    TextFlow(const Box& area, const TextMeasure& measure, PageLayout& layout)
        : area_(area),
          measure_(measure),
          layout_(layout),
          line_(measure.lineHeight(Font::normal)),
          blank_(measure.width(" ", Font::normal)),
          top_(area.top) {}

    /** False when no line is left for it, or not for all of it. */
    bool addParagraph(const Paragraph& paragraph, const Scale& scale) {
        left_ = area_.left;
        if (!startLine()) return false;
        if (paragraph.isItem) addDot(scale);
        for (const Piece& piece : paragraph.pieces) {
            if (piece.link ? !addLink(*piece.link, piece.text) : !addWords(piece.text)) {
                return false;
            }
        }
        flush();
        top_ += line_ + scale(kParagraphGap);
        return true;
    }

    [[nodiscard]] int top() const { return top_; }

  private:
    /** Begins a line at top_; false when it would not be in the area any more. */
    bool startLine() {
        x_ = left_;
        wantsBlank_ = false;
        return top_ + line_ <= area_.bottom;
    }

    bool nextLine() {
        flush();
        top_ += line_;
        return startLine();
    }

    void addDot(const Scale& scale) {
        const int size = std::max(line_ / 4, 3);
        const int left = area_.left + scale(2);
        const int top = top_ + (line_ - size) / 2 + scale(1);
        layout_.dots.push_back({left, top, left + size, top + size});
        left_ = x_ = area_.left + scale(kItemIndent);
    }

    [[nodiscard]] int room() const { return area_.right - x_; }

    /** Ends the run of plain text that is being collected. */
    void flush() {
        if (run_.empty()) return;
        const int width = measure_.width(run_, Font::normal);
        layout_.lines.push_back({{x_, top_, x_ + width, top_ + line_},
                                 run_,
                                 "",
                                 Font::normal,
                                 Tone::usual,
                                 Side::left});
        x_ += width;
        run_.clear();
    }

    bool addWords(std::string_view text) {
        while (!text.empty()) {
            if (text.starts_with(' ')) {
                wantsBlank_ = true;
                text.remove_prefix(1);
                continue;
            }
            const std::string_view word = text.substr(0, text.find(' '));
            if (!addWord(word)) return false;
            text.remove_prefix(word.size());
        }
        return true;
    }

    bool addWord(std::string_view word) {
        while (true) {
            const bool atStart = run_.empty() && x_ == left_;
            std::string longer = run_;
            if (wantsBlank_ && !atStart) longer += ' ';
            longer += word;
            if (measure_.width(longer, Font::normal) <= room()) {
                run_ = std::move(longer);
                wantsBlank_ = false;
                return true;
            }
            if (atStart) {
                const ui::WrappedText parts =
                    ui::wrapToWidth(word, Font::normal, room(), 2, measure_);
                const std::size_t taken = parts.lines.front().size();
                run_ = parts.lines.front();
                if (taken >= word.size()) return true;
                word.remove_prefix(taken);
            }
            if (isLastLine()) return endWithEllipsis(word);
            if (!nextLine()) return false;
        }
    }

    [[nodiscard]] bool isLastLine() const { return top_ + 2 * line_ > area_.bottom; }

    bool endWithEllipsis(std::string_view rest) {
        const std::string longer =
            run_ + (wantsBlank_ ? " " : "") + std::string(rest) + " " + std::string(ui::kEllipsis);
        run_ = ui::cutToWidth(longer, Font::normal, room(), measure_);
        flush();
        return false;
    }

    bool addLink(std::size_t index, const std::string& label) {
        const bool blankBefore = wantsBlank_;
        flush();
        int left = x_ + (blankBefore && x_ > left_ ? blank_ : 0);
        const int width = measure_.width(label, Font::normal);
        if (left + width > area_.right && x_ > left_) {
            if (isLastLine()) {
                wantsBlank_ = blankBefore;
                return endWithEllipsis(label);
            }
            if (!nextLine()) return false;
            left = x_;
        }
        const int right = std::min(left + width, area_.right);
        layout_.links.push_back(placeButton(JSW_VIEW_CONTENT_LINK + static_cast<int>(index),
                                            {left, top_, right, top_ + line_}, right - left,
                                            ui::asLabel(label), measure_));
        x_ = right;
        wantsBlank_ = false;
        return true;
    }

    const Box area_;
    const TextMeasure& measure_;
    PageLayout& layout_;
    const int line_;
    const int blank_;
    int top_;
    int left_ = 0;
    int x_ = 0;
    std::string run_;
    bool wantsBlank_ = false;
};

/** In one row at the lower edge; they share the room when there is not enough for all. */
int layoutButtons(const Page& page, const Box& area, const TextMeasure& measure, const Scale& scale,
                  PageLayout& layout) {
    if (page.buttons.empty()) return area.bottom;
    const int height = buttonHeight(measure, scale);
    const int gap = scale(kButtonGap);
    const int count = static_cast<int>(page.buttons.size());
    const int share = std::max((area.width() - gap * (count - 1)) / count, 1);
    int needed = gap * (count - 1);
    for (const ContentButton& button : page.buttons) {
        needed += buttonWidth(button.label, measure, scale);
    }
    int left = area.left;
    for (int i = 0; i < count; ++i) {
        const ContentButton& button = page.buttons[static_cast<std::size_t>(i)];
        const int wanted = buttonWidth(button.label, measure, scale);
        const int width = needed <= area.width() ? wanted : share;
        const Box box{left, area.bottom - height, left + width, area.bottom};
        layout.buttons.push_back(placeButton(JSW_VIEW_CONTENT_BUTTON + i, box,
                                             width - 2 * scale(kButtonPadding) + scale(8),
                                             button.label, measure));
        left += width + gap;
    }
    return area.bottom - height - scale(kPageMargin) / 2;
}

int layoutTitle(const Page& page, const Box& area, const TextMeasure& measure, PageLayout& layout) {
    const int line = measure.lineHeight(Font::title);
    const int room = std::max(area.height() / std::max(line, 1), 1);
    const auto title = ui::wrapToWidth(page.title, Font::title, area.width(),
                                       std::min(room, kMostTitleLines), measure);
    int top = area.top;
    for (const std::string& text : title.lines) {
        layout.lines.push_back({{area.left, top, area.right, top + line},
                                text,
                                title.cut && &text == &title.lines.back() ? page.title : "",
                                Font::title,
                                Tone::accent,
                                Side::left});
        top += line;
    }
    return top;
}

/** With some air above where there is room for it; nothing where the levels do not fit. */
InkLayout layoutPageInk(const WindowContent& content, const Box& area, const TextMeasure& measure,
                        const Scale& scale) {
    for (const int air : {scale(2 * kParagraphGap), 0}) {
        InkLayout ink = layoutInk(content, {area.left, area.top + air, area.right, area.bottom},
                                  measure, scale);
        if (ink.bottom <= area.bottom) return ink;
    }
    return {};
}

}  // namespace

PageLayout layoutPage(const Page& page, const WindowContent& content, const Box& card,
                      const TextMeasure& measure, const Scale& scale) {
    PageLayout layout;
    layout.card = card;
    const int margin = scale(kPageMargin);
    // A narrow page gives its room to the text.
    const int panel = page.picture == Picture::none ? 0 : scale(kPanelWidth);
    layout.panel = {card.left, card.top, card.left + std::min(panel, card.width() / 3),
                    card.bottom};
    layout.picture = layout.panel.inset(scale(kPicturePadding), scale(kPicturePadding));
    Box& area = layout.textArea;
    area = {layout.panel.right + margin, card.top + margin - scale(4), card.right - margin,
            card.bottom - margin};
    area.bottom = layoutButtons(page, area, measure, scale, layout);
    Box rest = area;
    rest.top = layoutTitle(page, area, measure, layout) + scale(kParagraphGap);

    TextFlow flow(rest, measure, layout);
    for (const Paragraph& paragraph : page.paragraphs) {
        if (flow.addParagraph(paragraph, scale)) continue;
        layout.full = pageText(page);
        break;
    }
    if (page.picture == Picture::ink && layout.full.empty()) {
        rest.top = flow.top();
        layout.ink = layoutPageInk(content, rest, measure, scale);
    }
    return layout;
}

std::string pageText(const Page& page) {
    std::string text;
    for (const Paragraph& paragraph : page.paragraphs) {
        if (!text.empty()) text += "\n";
        text += (paragraph.isItem ? "- " : "") + textOf(paragraph);
    }
    return text;
}

}  // namespace jsw::view
