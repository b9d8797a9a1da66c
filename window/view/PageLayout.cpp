#include "window/view/PageLayout.h"

#include "window/view/WindowIds.h"

#include <algorithm>
#include <string_view>

namespace jsw::window {
namespace {

constexpr int kPanelWidth = 150;
constexpr int kPageMargin = 18;
constexpr int kTightMargin = 8;
constexpr int kPicturePadding = 26;
constexpr int kParagraphGap = 7;
constexpr int kItemIndent = 15;
constexpr int kScrollBarWidth = 17;

/**
 * Flows words, and links, which stay in one piece, into lines.
 */
class TextFlow {
  public:
    TextFlow(const Box& area, const TextMeasure& measure, const Scale& scale, PageLayout& layout)
        : area_(area),
          measure_(measure),
          scale_(scale),
          layout_(layout),
          line_(measure.lineHeight(Font::normal)),
          blank_(measure.width(" ", Font::normal)),
          top_(area.top) {}

    void addTitle(const std::string& title) {
        const int line = measure_.lineHeight(Font::title);
        const auto wrapped = wrapToWidth(title, Font::title, area_.width(),
                                         static_cast<int>(kMaxTitleLength), measure_);
        for (const std::string& text : wrapped.lines) {
            layout_.lines.push_back({{area_.left, top_, area_.right, top_ + line},
                                     text,
                                     "",
                                     Font::title,
                                     Tone::accent,
                                     Side::left});
            top_ += line;
        }
        bottom_ = top_;
        top_ += scale_(kParagraphGap);
    }

    void addParagraph(const Paragraph& paragraph) {
        left_ = area_.left;
        startLine();
        if (paragraph.isItem) addDot();
        for (const Piece& piece : paragraph.pieces) {
            if (piece.link) {
                addLink(*piece.link, piece.text);
            } else {
                addWords(piece.text);
            }
        }
        flush();
        bottom_ = top_ + line_;
        top_ = bottom_ + scale_(kParagraphGap);
    }

    void addInk(const WindowContent& content) {
        const int top = top_ + scale_(kParagraphGap);
        layout_.ink = layoutInk(content, {area_.left, top, area_.right, top}, measure_, scale_);
        bottom_ = layout_.ink.bottom;
        top_ = bottom_ + scale_(kParagraphGap);
    }

    /** A row of buttons as high as this. */
    [[nodiscard]] Box addRow(int height) {
        bottom_ = top_ + height;
        return {area_.left, top_, area_.right, bottom_};
    }

    [[nodiscard]] int bottom() const { return bottom_; }

  private:
    void startLine() {
        x_ = left_;
        wantsBlank_ = false;
    }

    void nextLine() {
        flush();
        top_ += line_;
        startLine();
    }

    void addDot() {
        const int size = std::max(line_ / 4, 3);
        const int left = area_.left + scale_(2);
        const int top = top_ + (line_ - size) / 2 + scale_(1);
        layout_.dots.push_back({left, top, left + size, top + size});
        left_ = x_ = area_.left + scale_(kItemIndent);
    }

    [[nodiscard]] int room() const { return area_.right - x_; }

    /** Ends the current run of plain text. */
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

    void addWords(std::string_view text) {
        while (!text.empty()) {
            if (text.starts_with(' ')) {
                wantsBlank_ = true;
                text.remove_prefix(1);
                continue;
            }
            const std::string_view word = text.substr(0, text.find(' '));
            addWord(word);
            text.remove_prefix(word.size());
        }
    }

    void addWord(std::string_view word) {
        while (true) {
            const bool atStart = run_.empty() && x_ == left_;
            std::string longer = run_;
            if (wantsBlank_ && !atStart) longer += ' ';
            longer += word;
            if (measure_.width(longer, Font::normal) <= room()) {
                run_ = std::move(longer);
                wantsBlank_ = false;
                return;
            }
            if (atStart) {
                // Wider than a line: broken.
                run_ = wrapToWidth(word, Font::normal, room(), 2, measure_).lines.front();
                if (run_.size() >= word.size()) return;
                word.remove_prefix(run_.size());
            }
            nextLine();
        }
    }

    void addLink(std::size_t index, const std::string& label) {
        const bool blankBefore = wantsBlank_;
        flush();
        int left = x_ + (blankBefore && x_ > left_ ? blank_ : 0);
        const int width = measure_.width(label, Font::normal);
        if (left + width > area_.right && x_ > left_) {
            nextLine();
            left = x_;
        }
        const int right = std::min(left + width, area_.right);
        layout_.inText.push_back(placeButton(JSW_VIEW_CONTENT_LINK + static_cast<int>(index),
                                             {left, top_, right, top_ + line_}, right - left,
                                             asLabel(label), measure_));
        x_ = right;
        wantsBlank_ = false;
    }

    const Box area_;
    const TextMeasure& measure_;
    const Scale& scale_;
    PageLayout& layout_;
    const int line_;
    const int blank_;
    int top_;
    int bottom_ = 0; /**< of the last item added, without the gap below it */
    int left_ = 0;
    int x_ = 0;
    std::string run_;
    bool wantsBlank_ = false;
};

/** The page's buttons in a row. */
std::vector<PlacedButton> placeButtons(const Page& page, const Box& row, const TextMeasure& measure,
                                       const Scale& scale) {
    std::vector<std::string> labels;
    for (const ContentButton& button : page.buttons) labels.push_back(button.label);
    const int gap = scale(kButtonGap);
    const int gaps = gap * (static_cast<int>(labels.size()) - 1);
    const std::vector<int> widths = buttonWidths(labels, row.width() - gaps, measure, scale);
    std::vector<PlacedButton> placed;
    int left = row.left;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        placed.push_back(placePushButton(JSW_VIEW_CONTENT_BUTTON + static_cast<int>(i),
                                         {left, row.top, left + widths[i], row.bottom}, labels[i],
                                         measure, scale));
        left += widths[i] + gap;
    }
    return placed;
}

/** Lays the page's text out at its full height, whatever part of it is visible. */
void layoutText(const Page& page, const WindowContent& content, const TextMeasure& measure,
                const Scale& scale, bool isTight, PageLayout& layout) {
    layout.lines.clear();
    layout.dots.clear();
    layout.inText.clear();
    TextFlow flow(layout.textArea, measure, scale, layout);
    flow.addTitle(page.title);
    for (const Paragraph& paragraph : page.paragraphs) flow.addParagraph(paragraph);
    if (page.picture == Picture::ink || isTight) flow.addInk(content);
    if (isTight && !page.buttons.empty()) {
        const Box row = flow.addRow(buttonHeight(measure, scale));
        const auto buttons = placeButtons(page, row, measure, scale);
        layout.inText.insert(layout.inText.end(), buttons.begin(), buttons.end());
    }
    layout.textHeight = flow.bottom() - layout.textArea.top;
}

void scrollText(int wanted, PageLayout& layout) {
    const int most = std::max(layout.textHeight - layout.textArea.height(), 0);
    layout.scrolled = std::clamp(wanted, 0, most);
    const auto move = [up = -layout.scrolled](Box& box) { box = box.moved(0, up); };
    for (PlacedText& line : layout.lines) move(line.box);
    for (Box& dot : layout.dots) move(dot);
    for (PlacedButton& control : layout.inText) move(control.box);
    if (layout.ink.sentence) move(layout.ink.sentence->box);
    for (InkCell& cell : layout.ink.cells) {
        move(cell.label.box);
        move(cell.level.box);
        move(cell.bar);
    }
}

}  // namespace

PageLayout layoutPage(const Page& page, const WindowContent& content, const PageRoom& room,
                      const TextMeasure& measure, const Scale& scale) {
    PageLayout layout;
    const Box& card = layout.card = room.card;
    const bool isTight = room.isTight;
    const int margin = scale(isTight ? kTightMargin : kPageMargin);
    // On a narrow page the text has priority.
    const int panel = page.picture == Picture::none || isTight
                          ? 0
                          : std::min(scale(kPanelWidth), card.width() / 3);
    layout.panel = {card.left, card.top, card.left + panel, card.bottom};
    layout.picture = layout.panel.inset(scale(kPicturePadding), scale(kPicturePadding));

    Box& area = layout.textArea;
    area = {layout.panel.right + margin, card.top + margin - scale(4), card.right - margin,
            card.bottom - margin};
    if (!isTight && !page.buttons.empty()) {
        const Box row{area.left, area.bottom - buttonHeight(measure, scale), area.right,
                      area.bottom};
        layout.buttons = placeButtons(page, row, measure, scale);
        area.bottom = row.top - margin / 2;
    }
    area.right = std::max(area.right, area.left);
    area.bottom = std::max(area.bottom, area.top);
    layoutText(page, content, measure, scale, isTight, layout);
    if (layout.textHeight > area.height()) {
        const int thin = std::max(scale(1), 1);
        const int right = card.right - 2 * thin;
        layout.scrollBar = {right - scale(kScrollBarWidth), area.top, right, area.bottom};
        area.right = std::max(std::min(area.right, layout.scrollBar.left - scale(6)), area.left);
        layoutText(page, content, measure, scale, isTight, layout);
    }
    scrollText(room.scrolled, layout);
    return layout;
}

Box PageLayout::seenOf(const PlacedButton& control) const {
    return control.box.clippedTo(textArea);
}

int PageLayout::scrolledTo(const PlacedButton& control) const {
    if (control.box.top < textArea.top) return scrolled + control.box.top - textArea.top;
    return scrolled + std::max(control.box.bottom - textArea.bottom, 0);
}

std::string pageText(const Page& page) {
    std::string text;
    for (const Paragraph& paragraph : page.paragraphs) {
        if (!text.empty()) text += "\n";
        text += (paragraph.isItem ? "- " : "") + textOf(paragraph);
    }
    return text;
}

}  // namespace jsw::window
