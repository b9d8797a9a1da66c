/**
 * @file PageLayout.h
 * Where the parts of a billboard page are. No Windows in it.
 */
#pragma once

#include "window/view/BillboardContent.h"
#include "window/view/InkLayout.h"

#include <string>
#include <vector>

namespace jsw::view {

/** What a page is laid out in. */
struct PageRoom {
    Box card;
    int scrolled = 0; /**< pixels of the text above the card; too many count as to the end */
    bool isTight =
        false; /**< little room: no picture, and the levels and buttons follow the text */
};

/** A text that is higher than its area is scrolled: what is in it may lie above or below. */
struct PageLayout {
    Box card;
    Box panel; /**< the coloured part with the picture */
    Box picture;
    Box textArea;
    Box scrollBar; /**< empty when everything fits */
    int textHeight = 0;
    int scrolled = 0;
    std::vector<PlacedText> lines;     /**< title and paragraphs; a line may consist of several */
    std::vector<Box> dots;             /**< before the items of a list */
    std::vector<PlacedButton> inText;  /**< links, on a tight page also its buttons */
    std::vector<PlacedButton> buttons; /**< below the text */
    InkLayout ink;                     /**< on a page that shows the levels */
    bool operator==(const PageLayout&) const = default;

    /** What is to be seen of a control in the text; empty, at the nearest edge, when nothing is. */
    [[nodiscard]] Box seenOf(const PlacedButton& control) const;
    /** How far to scroll, so that this control in the text is seen. */
    [[nodiscard]] int scrolledTo(const PlacedButton& control) const;
};

[[nodiscard]] PageLayout layoutPage(const Page& page, const WindowContent& content,
                                    const PageRoom& room, const TextMeasure& measure,
                                    const Scale& scale);

/** The page's text as one, for a screen reader. */
[[nodiscard]] std::string pageText(const Page& page);

}  // namespace jsw::view
