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

/** Sizes of the window without its frame, in pixels at 96 dots per inch. */
inline constexpr Size kUsualSize{640, 544};
inline constexpr Size kLeastSize{440, 420};

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
    Box ink; /**< what the levels take */
    InkLayout inkLayout;

    bool hasPage = false; /**< false: the window is too low for a billboard */
    PageLayout page;

    std::vector<PlacedButton> buttons;    /**< below the page and in the footer */
    std::vector<PlacedButton> checkBoxes; /**< in the footer */
    bool operator==(const WindowLayout&) const = default;
};

[[nodiscard]] WindowLayout layoutWindow(const WindowContent& content, const Page& page, Size size,
                                        const Strings& strings, const TextMeasure& measure,
                                        const Scale& scale);

}  // namespace jsw::view
