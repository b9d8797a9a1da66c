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

struct PageLayout {
    Box card;
    Box panel; /**< the coloured part with the picture */
    Box picture;
    Box textArea;
    std::vector<PlacedText> lines; /**< title and paragraphs; a line may consist of several */
    std::vector<Box> dots;         /**< before the items of a list */
    std::vector<PlacedButton> links;
    std::vector<PlacedButton> buttons;
    InkLayout ink;    /**< on a page that shows the levels */
    std::string full; /**< the page's text, when some of it did not fit; else empty */
    bool operator==(const PageLayout&) const = default;
};

/**
 * Lays the page out in the card. Text that does not fit ends with an ellipsis; links behind it are
 * left out.
 */
[[nodiscard]] PageLayout layoutPage(const Page& page, const WindowContent& content, const Box& card,
                                    const TextMeasure& measure, const Scale& scale);

/** The page's text as one, for a tooltip or a screen reader. */
[[nodiscard]] std::string pageText(const Page& page);

}  // namespace jsw::view
