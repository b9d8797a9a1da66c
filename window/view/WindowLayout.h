/**
 * @file WindowLayout.h
 * The window's layout. Needs no Windows: the caller provides the size and the scale and measures
 * texts.
 */
#pragma once

#include "window/view/InkLayout.h"
#include "window/view/PageLayout.h"
#include "window/view/WindowContent.h"

#include <vector>

namespace jsw::window {

/** Default size of the window without its frame, in pixels at 96 dots per inch. */
inline constexpr Size kUsualSize{640, 544};

struct WindowLayout {
    Size size;
    Box footer; /**< the band at the lower edge */
    Box badge;  /**< behind the remark on simulated data, or empty */

    struct Text {
        int id;
        PlacedText placed;
        bool operator==(const Text&) const = default;
    };
    std::vector<Text> texts;
    Box question; /**< the area of the question in the footer, or empty */
    std::vector<PlacedText> questionLines;
    Box progressBar;
    Box ink; /**< the area of the levels; empty if they are on the page */
    InkLayout inkLayout;
    PageLayout page;

    std::vector<PlacedButton> buttons;    /**< below the page and in the footer */
    std::vector<PlacedButton> checkBoxes; /**< in the footer */
    bool operator==(const WindowLayout&) const = default;
};

/**
 * Lays out a window of this size. In a low window the page has priority: the document's name is
 * only in the title bar, and the ink levels are on the page.
 * @param scrolled as in PageRoom
 */
[[nodiscard]] WindowLayout layoutWindow(const WindowContent& content, const Page& page, Size size,
                                        int scrolled, const WindowTexts& texts,
                                        const TextMeasure& measure, const Scale& scale);

/** The minimum size, in pixels, at which every button shows its label and the page some lines. */
[[nodiscard]] Size leastSize(const WindowContent& content, const WindowTexts& texts,
                             const TextMeasure& measure, const Scale& scale);

}  // namespace jsw::window
