/**
 * @file WindowLayout.h
 * Where everything in the window is. No Windows in it: the size of the window, the scale and the
 * measuring of texts are handed in.
 */
#pragma once

#include "window/view/InkLayout.h"
#include "window/view/PageLayout.h"
#include "window/view/WindowContent.h"

#include <vector>

namespace jsw::view {

/** Size of the window without its frame, in pixels at 96 dots per inch. */
inline constexpr Size kUsualSize{640, 544};

struct WindowLayout {
    Size size;
    Box footer; /**< the band at the lower edge */
    Box badge;  /**< behind the remark on simulated data; empty when there is none */

    struct Text {
        int id;
        PlacedText placed;
        bool operator==(const Text&) const = default;
    };
    std::vector<Text> texts;
    Box question; /**< what the question in the footer takes; empty when there is none */
    std::vector<PlacedText> questionLines;
    Box progressBar;
    Box ink; /**< what the levels take; empty when they are on the page */
    InkLayout inkLayout;
    PageLayout page;

    std::vector<PlacedButton> buttons;    /**< below the page and in the footer */
    std::vector<PlacedButton> checkBoxes; /**< in the footer */
    bool operator==(const WindowLayout&) const = default;
};

/**
 * Lays a window of this size out. A low one gives its room to the page: it leaves the document's
 * name to the title bar, and the ink levels are on the page.
 * @param scrolled as in PageRoom
 */
[[nodiscard]] WindowLayout layoutWindow(const WindowContent& content, const Page& page, Size size,
                                        int scrolled, const Strings& strings,
                                        const TextMeasure& measure, const Scale& scale);

/** The least size, in pixels, at which every button shows its label and the page some lines. */
[[nodiscard]] Size leastSize(const WindowContent& content, const Strings& strings,
                             const TextMeasure& measure, const Scale& scale);

}  // namespace jsw::view
