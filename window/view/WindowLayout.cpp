#include "window/view/WindowLayout.h"

#include "window/view/ControlIds.h"

#include <algorithm>
#include <optional>

namespace jsw::view {
namespace {

constexpr int kTop = 16;
constexpr int kSmallGap = 6;
constexpr int kSectionGap = 18;
constexpr int kFooterMargin = 14;
constexpr int kBadgePadding = 10;
constexpr int kCheckBoxGap = 20; /**< between two check boxes in a row */
constexpr int kCheckMark = 22;   /**< the box of a check box and the space behind it */
constexpr int kLeastPage = 120;  /**< a lower billboard is left out */
constexpr int kMostQuestionLines = 3;

/** Lays the window out from the top down and from the bottom up; the page gets what is left. */
class WindowBuilder {
  public:
    WindowBuilder(const WindowContent& content, const Page& page, Size size, const Strings& strings,
                  const TextMeasure& measure, const Scale& scale)
        : content_(content),
          page_(page),
          strings_(strings),
          measure_(measure),
          scale_(scale),
          line_(measure.lineHeight(Font::normal)),
          left_(scale(kMargin)),
          right_(std::max(size.width - scale(kMargin), scale(kMargin))),
          top_(scale(kTop)) {
        layout_.size = size;
    }

    WindowLayout build() {
        placeFooter();
        placeNames();
        placeProgress();
        placeInk();
        placePage();
        return std::move(layout_);
    }

  private:
    void addText(int id, const Box& box, const std::string& text, Font font, Tone tone,
                 Side side = Side::left) {
        layout_.texts.push_back({id, placeText(box, text, font, tone, side, measure_)});
    }

    void placeNames() {
        const int heading = measure_.lineHeight(Font::heading);
        int end = right_;
        if (content_.isSimulated) {
            const int wanted = measure_.width(strings_.simulated, Font::bold);
            const int width = std::min(wanted + 2 * scale_(kBadgePadding), (right_ - left_) / 2);
            const int height = line_ + scale_(6);
            const int badgeTop = top_ + (heading - height) / 2;
            layout_.badge = {right_ - width, badgeTop, right_, badgeTop + height};
            addText(JSW_VIEW_SIMULATED, layout_.badge.inset(scale_(4), scale_(3)),
                    strings_.simulated, Font::bold, Tone::badge, Side::middle);
            end = layout_.badge.left - scale_(kCheckBoxGap);
        }
        addText(JSW_VIEW_PRINTER_NAME, {left_, top_, end, top_ + heading}, content_.printer,
                Font::heading, Tone::usual);
        top_ = std::max(top_ + heading, layout_.badge.bottom) + scale_(1);
        addText(JSW_VIEW_JOB_NAME, {left_, top_, right_, top_ + line_}, content_.job, Font::normal,
                Tone::faint);
        top_ += line_ + scale_(kSectionGap);
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
        top_ = layout_.progressBar.bottom + scale_(kSectionGap);
    }

    void placeInk() {
        const Box area{left_, top_, right_, top_};
        layout_.inkLayout = layoutInk(content_, area, measure_, scale_);
        layout_.ink = {left_, top_, right_, layout_.inkLayout.bottom};
        top_ = layout_.ink.bottom + scale_(kSectionGap);
    }

    void placePage() {
        const int navigation = buttonHeight(measure_, scale_);
        const int bottom =
            layout_.footer.top - scale_(kSectionGap) - navigation - scale_(kButtonGap + 2);
        if (bottom - top_ < scale_(kLeastPage)) return;
        layout_.hasPage = true;
        const Box card{left_, top_, right_, bottom};
        layout_.page = layoutPage(page_, content_, card, measure_, scale_);
        const int row = bottom + scale_(kButtonGap + 2);
        placeNavigation({left_, row, right_, row + navigation});
    }

    void placeNavigation(const Box& row) {
        const struct {
            int id;
            const char* label;
        } entries[] = {{JSW_VIEW_PREVIOUS, strings_.previous},
                       {JSW_VIEW_CURRENT, strings_.current},
                       {JSW_VIEW_NEXT, strings_.next},
                       {JSW_VIEW_INK_STATUS, strings_.inkStatus}};
        const int gap = scale_(kButtonGap);
        const int share = (row.width() - 4 * gap) / 4;
        int left = row.left;
        for (const auto& entry : entries) {
            const int width = std::min(buttonWidth(entry.label, measure_, scale_), share);
            // The last one stands apart, at the other end: it belongs to no order of pages.
            if (entry.id == JSW_VIEW_INK_STATUS) left = row.right - width;
            addButton(entry.id, {left, row.top, left + width, row.bottom}, entry.label);
            left += width + gap;
        }
    }

    void addButton(int id, const Box& box, const std::string& label) {
        const int room = box.width() - 2 * scale_(kButtonPadding) + scale_(8);
        layout_.buttons.push_back(placeButton(id, box, room, label, measure_));
    }

    void placeFooter() {
        if (content_.question != Question::none) {
            placeQuestion();
        } else {
            placeChoices();
        }
    }

    /** A footer with content of this height; answers where that content is. */
    Box makeFooter(int height) {
        const int margin = scale_(kFooterMargin);
        layout_.footer = {0, layout_.size.height - height - 2 * margin, layout_.size.width,
                          layout_.size.height};
        return {left_, layout_.footer.top + margin, right_, layout_.footer.bottom - margin};
    }

    void placeQuestion() {
        const int height = buttonHeight(measure_, scale_);
        const int gap = scale_(kButtonGap);
        const int share = (right_ - left_) / 3;
        const int yes = std::min(buttonWidth(content_.yes, measure_, scale_), share);
        const int no = std::min(buttonWidth(content_.no, measure_, scale_), share);
        const int textRight = right_ - yes - no - gap - scale_(kCheckBoxGap);
        const auto text =
            ui::wrapToWidth(content_.questionText, Font::bold, std::max(textRight - left_, 1),
                            kMostQuestionLines, measure_);
        const int line = measure_.lineHeight(Font::bold);
        const int lines = static_cast<int>(text.lines.size());
        const Box row = makeFooter(std::max(height, lines * line));
        int top = row.top + (row.height() - lines * line) / 2;
        layout_.question = {left_, top, textRight, top + lines * line};
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
        const int buttonTop = row.top + (row.height() - height) / 2;
        addButton(JSW_VIEW_YES,
                  {right_ - no - gap - yes, buttonTop, right_ - no - gap, buttonTop + height},
                  content_.yes);
        addButton(JSW_VIEW_NO, {right_ - no, buttonTop, right_, buttonTop + height}, content_.no);
    }

    /** The check boxes side by side or, where they have no room for that, one above the other. */
    void placeChoices() {
        const struct {
            int id;
            const char* label;
        } boxes[] = {{JSW_VIEW_UPDATE_AUTOMATICALLY, strings_.updateAutomatically},
                     {JSW_VIEW_SPECIAL_MESSAGES, strings_.specialMessages}};
        const int height = buttonHeight(measure_, scale_);
        const int cancel =
            std::min(buttonWidth(content_.cancel, measure_, scale_), (right_ - left_) / 2);
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

    [[nodiscard]] int checkBoxWidth(const char* label) const {
        return measure_.width(ui::withoutAccessKey(label), Font::normal) + scale_(kCheckMark) +
               scale_(4);
    }

    const WindowContent& content_;
    const Page& page_;
    const Strings& strings_;
    const TextMeasure& measure_;
    const Scale& scale_;
    const int line_;
    const int left_;
    const int right_;
    int top_;
    WindowLayout layout_;
};

}  // namespace

WindowLayout layoutWindow(const WindowContent& content, const Page& page, Size size,
                          const Strings& strings, const TextMeasure& measure, const Scale& scale) {
    return WindowBuilder(content, page, size, strings, measure, scale).build();
}

}  // namespace jsw::view
