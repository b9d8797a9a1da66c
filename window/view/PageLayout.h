/**
 * @file PageLayout.h
 * The layout of a billboard page. Needs no Windows.
 */
#pragma once

#include "window/view/BillboardContent.h"
#include "window/view/InkLayout.h"

#include <string>
#include <vector>

namespace jsw::window {

/** The room for a page. */
struct PageRoom {
    Box card;
    int scrolled = 0; /**< pixels of the text above the card; limited to the end */
    bool isTight =
        false; /**< little room: no picture, and the levels and buttons follow the text */
};

/** A text that is higher than its area scrolls: its parts may be above or below the area. */
struct PageLayout {
    Box card;
    Box panel; /**< the coloured part with the picture */
    Box picture;
    Box textArea;
    Box scrollBar; /**< empty if everything fits */
    int textHeight = 0;
    int scrolled = 0;
    std::vector<PlacedText> lines;     /**< title and paragraphs; a line may consist of several */
    std::vector<Box> dots;             /**< before the items of a list */
    std::vector<PlacedButton> inText;  /**< links, on a tight page also its buttons */
    std::vector<PlacedButton> buttons; /**< below the text */
    InkLayout ink;                     /**< on a page that shows the levels */
    bool operator==(const PageLayout&) const = default;

    /**
     * The visible part of a control in the text; an empty box at the nearest edge if there is none.
     */
    [[nodiscard]] Box seenOf(const PlacedButton& control) const;
    /** The scroll position that makes this control in the text visible. */
    [[nodiscard]] int scrolledTo(const PlacedButton& control) const;
};

[[nodiscard]] PageLayout layoutPage(const Page& page, const WindowContent& content,
                                    const PageRoom& room, const TextMeasure& measure,
                                    const Scale& scale);

/** The page's whole text, for a screen reader. */
[[nodiscard]] std::string pageText(const Page& page);

}  // namespace jsw::window
