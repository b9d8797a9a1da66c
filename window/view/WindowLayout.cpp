#include "window/view/WindowLayout.h"

#include "window/view/WindowIds.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace jsw::window {
namespace {

/** Gaps that shrink in a low window. */
struct Gaps {
    int top;
    int section;
    int footer; /**< above and below what is in it */
    int navigation;
};
constexpr Gaps kUsualGaps{16, 18, 14, 10};
constexpr Gaps kTightGaps{8, 8, 8, 6};

constexpr int kSmallGap = 6;
constexpr int kBadgePadding = 10;
constexpr int kCheckBoxGap = 20; /**< between two check boxes in a row */
constexpr int kCheckMark = 22;   /**< the box of a check box and the space after it */
constexpr int kLeastPage = 120;  /**< below this height the window uses the tight layout */
constexpr int kLeastTightPage = 80;
constexpr int kMostQuestionLines = 3;
constexpr int kLeastQuestion = 180; /**< a narrower question is above its buttons */

/** Lays the window out from the top and from the bottom; the page gets the rest. */
class WindowBuilder {
  public:
    WindowBuilder(const WindowContent& content, const Page& page, Size size,
                  const WindowTexts& texts, const TextMeasure& measure, const Scale& scale)
        : content_(content),
          page_(page),
          texts_(texts),
          measure_(measure),
          scale_(scale),
          line_(measure.lineHeight(Font::normal)),
          size_(size),
          left_(scale(kMargin)),
          right_(std::max(size.width - scale(kMargin), scale(kMargin))) {}

    WindowLayout build(int scrolled) {
        start(false);
        placeInk();
        const bool isTight = pageBottom() - top_ < scale_(kLeastPage);
        if (isTight) start(true);
        placePage(scrolled, isTight);
        placeNavigation();
        return std::move(layout_);
    }

    [[nodiscard]] Size least() {
        start(true);
        const auto labels = navigationLabels();
        const int navigation = std::accumulate(
            labels.begin(), labels.end(), 4 * scale_(kButtonGap),
            [&](int sum, const std::string& label) { return sum + leastWidth(label); });
        const int checkBoxes = std::max(checkBoxWidth(texts_.updateAutomatically),
                                        checkBoxWidth(texts_.specialMessages));
        const int choices = checkBoxes + scale_(kCheckBoxGap) + usualWidth(content_.cancel);
        const int answers = scale_(kButtonGap) +
                            std::max(usualWidth(texts_.cancelYes) + usualWidth(texts_.cancelNo),
                                     usualWidth(texts_.closeYes) + usualWidth(texts_.closeNo));
        return {2 * scale_(kMargin) + std::max({navigation, choices, answers}),
                size_.height - (pageBottom() - top_) + scale_(kLeastTightPage)};
    }

  private:
    /** Everything except the levels, the page and the navigation. */
    void start(bool isTight) {
        gaps_ = isTight ? kTightGaps : kUsualGaps;
        layout_ = {};
        layout_.size = size_;
        top_ = scale_(gaps_.top);
        placeFooter();
        placeNames(!isTight);
        placeProgress();
    }

    [[nodiscard]] int pageBottom() const {
        return layout_.footer.top - scale_(gaps_.section) - buttonHeight(measure_, scale_) -
               scale_(gaps_.navigation);
    }

    [[nodiscard]] int usualWidth(std::string_view label) const {
        return buttonWidth(label, measure_, scale_);
    }
    [[nodiscard]] int leastWidth(std::string_view label) const {
        return leastButtonWidth(label, measure_, scale_);
    }

    void addText(int id, const Box& box, const std::string& text, Font font, Tone tone,
                 Side side = Side::left) {
        layout_.texts.push_back({id, placeText(box, text, font, tone, side, measure_)});
    }

    void placeNames(bool withJob) {
        const int heading = measure_.lineHeight(Font::heading);
        int end = right_;
        if (content_.isSimulated) {
            const int wanted = measure_.width(texts_.simulated, Font::bold);
            const int width = std::min(wanted + 2 * scale_(kBadgePadding), (right_ - left_) / 2);
            const int height = line_ + scale_(6);
            const int badgeTop = top_ + (heading - height) / 2;
            layout_.badge = {right_ - width, badgeTop, right_, badgeTop + height};
            addText(JSW_VIEW_SIMULATED, layout_.badge.inset(scale_(4), scale_(3)), texts_.simulated,
                    Font::bold, Tone::badge, Side::middle);
            end = layout_.badge.left - scale_(kCheckBoxGap);
        }
        addText(JSW_VIEW_PRINTER_NAME, {left_, top_, end, top_ + heading}, content_.printer,
                Font::heading, Tone::usual);
        top_ = std::max(top_ + heading, layout_.badge.bottom) + scale_(1);
        if (withJob) {
            addText(JSW_VIEW_JOB_NAME, {left_, top_, right_, top_ + line_}, content_.job,
                    Font::normal, Tone::faint);
            top_ += line_;
        }
        top_ += scale_(gaps_.section);
    }

    void placeProgress() {
        const int bold = measure_.lineHeight(Font::bold);
        const int time = std::min(measure_.width(content_.time, Font::normal),
                                  (right_ - left_) / 2 - scale_(kCheckBoxGap));
        addText(JSW_VIEW_PROGRESS_TEXT,
                {left_, top_, right_ - time - scale_(kCheckBoxGap), top_ + bold}, content_.progress,
                Font::bold, Tone::usual);
        addText(JSW_VIEW_TIME_TEXT, {right_ - time, top_, right_, top_ + bold}, content_.time,
                Font::normal, Tone::faint, Side::right);
        top_ += bold + scale_(kSmallGap);
        layout_.progressBar = {left_, top_, right_, top_ + scale_(kBarHeight)};
        top_ = layout_.progressBar.bottom + scale_(gaps_.section);
    }

    void placeInk() {
        const Box area{left_, top_, right_, top_};
        layout_.inkLayout = layoutInk(content_, area, measure_, scale_);
        layout_.ink = {left_, top_, right_, layout_.inkLayout.bottom};
        top_ = layout_.ink.bottom + scale_(gaps_.section);
    }

    void placePage(int scrolled, bool isTight) {
        const Box card{left_, top_, right_, std::max(pageBottom(), top_)};
        layout_.page = layoutPage(page_, content_, {card, scrolled, isTight}, measure_, scale_);
    }

    [[nodiscard]] std::vector<std::string> navigationLabels() const {
        return {texts_.previous, texts_.current, texts_.next, texts_.inkStatus};
    }

    void placeNavigation() {
        constexpr std::array kIds{JSW_VIEW_PREVIOUS, JSW_VIEW_CURRENT, JSW_VIEW_NEXT,
                                  JSW_VIEW_INK_STATUS};
        const auto labels = navigationLabels();
        const int gap = scale_(kButtonGap);
        const auto widths = buttonWidths(labels, right_ - left_ - 4 * gap, measure_, scale_);
        const int top = layout_.page.card.bottom + scale_(gaps_.navigation);
        int left = left_;
        for (std::size_t i = 0; i < kIds.size(); ++i) {
            // The last one is at the other end: it is not part of the page order.
            if (kIds[i] == JSW_VIEW_INK_STATUS) left = right_ - widths[i];
            addButton(kIds[i], {left, top, left + widths[i], top + buttonHeight(measure_, scale_)},
                      labels[i]);
            left += widths[i] + gap;
        }
    }

    void addButton(int id, const Box& box, const std::string& label) {
        layout_.buttons.push_back(placePushButton(id, box, label, measure_, scale_));
    }

    void placeFooter() {
        if (content_.question != Question::none) {
            placeQuestion();
        } else {
            placeChoices();
        }
    }

    /** A footer with content of this height; returns the content's box. */
    Box makeFooter(int height) {
        const int margin = scale_(gaps_.footer);
        layout_.footer = {0, layout_.size.height - height - 2 * margin, layout_.size.width,
                          layout_.size.height};
        return {left_, layout_.footer.top + margin, right_, layout_.footer.bottom - margin};
    }

    /** The question beside its buttons or, if there is no room, above them. */
    void placeQuestion() {
        const int height = buttonHeight(measure_, scale_);
        const int gap = scale_(kButtonGap);
        const auto widths =
            buttonWidths({content_.yes, content_.no}, right_ - left_ - gap, measure_, scale_);
        const int buttonsLeft = right_ - widths[0] - gap - widths[1];
        const int beside = buttonsLeft - scale_(kCheckBoxGap) - left_;
        const bool isAbove = beside < scale_(kLeastQuestion);
        const int textRight = isAbove ? right_ : left_ + beside;
        const auto text = wrapToWidth(content_.questionText, Font::bold,
                                      std::max(textRight - left_, 1), kMostQuestionLines, measure_);
        const int line = measure_.lineHeight(Font::bold);
        const int textHeight = static_cast<int>(text.lines.size()) * line;
        const Box row = makeFooter(isAbove ? textHeight + scale_(kSmallGap) + height
                                           : std::max(height, textHeight));
        int top = isAbove ? row.top : row.top + (row.height() - textHeight) / 2;
        layout_.question = {left_, top, textRight, top + textHeight};
        for (const std::string& part : text.lines) {
            const bool isCut = text.cut && &part == &text.lines.back();
            layout_.questionLines.push_back({{left_, top, textRight, top + line},
                                             part,
                                             isCut ? content_.questionText : "",
                                             Font::bold,
                                             Tone::usual,
                                             Side::left});
            top += line;
        }
        const int buttonTop = isAbove ? row.bottom - height : row.top + (row.height() - height) / 2;
        addButton(JSW_VIEW_YES,
                  {buttonsLeft, buttonTop, buttonsLeft + widths[0], buttonTop + height},
                  content_.yes);
        addButton(JSW_VIEW_NO, {right_ - widths[1], buttonTop, right_, buttonTop + height},
                  content_.no);
    }

    /** The check boxes side by side or, if there is no room, one above the other. */
    void placeChoices() {
        const struct {
            int id;
            const std::string& label;
        } boxes[] = {{JSW_VIEW_UPDATE_AUTOMATICALLY, texts_.updateAutomatically},
                     {JSW_VIEW_SPECIAL_MESSAGES, texts_.specialMessages}};
        const int height = buttonHeight(measure_, scale_);
        const int cancel = std::min(usualWidth(content_.cancel), (right_ - left_) / 2);
        const int room = right_ - left_ - cancel - scale_(kCheckBoxGap);
        const int first = checkBoxWidth(boxes[0].label);
        const int second = checkBoxWidth(boxes[1].label);
        const bool sideBySide = first + scale_(kCheckBoxGap) + second <= room;
        const int checkHeight = line_ + scale_(4);
        const int stackGap = scale_(2);
        const Box row =
            makeFooter(sideBySide ? height : std::max(height, 2 * checkHeight + stackGap));
        int left = row.left;
        int top =
            row.top + (row.height() - (sideBySide ? checkHeight : 2 * checkHeight + stackGap)) / 2;
        for (const auto& box : boxes) {
            const int width = std::min(checkBoxWidth(box.label), room);
            layout_.checkBoxes.push_back(
                placeButton(box.id, {left, top, left + width, top + checkHeight},
                            width - scale_(kCheckMark), box.label, measure_));
            if (sideBySide) {
                left += width + scale_(kCheckBoxGap);
            } else {
                top += checkHeight + stackGap;
            }
        }
        const int cancelTop = row.top + (row.height() - height) / 2;
        addButton(JSW_VIEW_CANCEL, {right_ - cancel, cancelTop, right_, cancelTop + height},
                  content_.cancel);
    }

    [[nodiscard]] int checkBoxWidth(const std::string& label) const {
        return measure_.width(withoutAccessKey(label), Font::normal) + scale_(kCheckMark) +
               scale_(4);
    }

    const WindowContent& content_;
    const Page& page_;
    const WindowTexts& texts_;
    const TextMeasure& measure_;
    const Scale& scale_;
    const int line_;
    const Size size_;
    const int left_;
    const int right_;
    Gaps gaps_{};
    int top_ = 0;
    WindowLayout layout_;
};

}  // namespace

WindowLayout layoutWindow(const WindowContent& content, const Page& page, Size size, int scrolled,
                          const WindowTexts& texts, const TextMeasure& measure,
                          const Scale& scale) {
    return WindowBuilder(content, page, size, texts, measure, scale).build(scrolled);
}

Size leastSize(const WindowContent& content, const WindowTexts& texts, const TextMeasure& measure,
               const Scale& scale) {
    // The narrower the window, the higher its footer.
    const Size any{scale(kUsualSize.width), scale(kUsualSize.height)};
    const Page none;
    const int width = WindowBuilder(content, none, any, texts, measure, scale).least().width;
    return WindowBuilder(content, none, {width, any.height}, texts, measure, scale).least();
}

}  // namespace jsw::window
