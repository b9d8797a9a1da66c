/**
 * @file Placed.h
 * Texts and buttons with their positions in the window. Needs no Windows.
 */
#pragma once

#include "window/ui/Geometry.h"
#include "window/ui/TextFit.h"

#include <string>
#include <string_view>
#include <vector>

namespace jsw::window {

/** The meaning of a text's colour. */
enum class Tone { usual, faint, warning, accent, badge };

enum class Side { left, right, middle };

/** A line of text and its box, into which it fits. */
struct PlacedText {
    Box box;
    std::string text;
    std::string full; /**< the full text if it was cut; else empty */
    Font font = Font::normal;
    Tone tone = Tone::usual;
    Side side = Side::left;
    bool operator==(const PlacedText&) const = default;
};

/** Cuts the text to the width of the box. */
[[nodiscard]] PlacedText placeText(const Box& box, std::string_view text, Font font, Tone tone,
                                   Side side, const TextMeasure& measure);

/** A control that can be pressed. */
struct PlacedButton {
    int id = 0;
    Box box;
    std::string label; /**< with the mark of its access key */
    std::string full;  /**< as with PlacedText */
    bool operator==(const PlacedButton&) const = default;
};

/** A button (or check box) whose label has this much room; a label that is cut has no access key.
 */
[[nodiscard]] PlacedButton placeButton(int id, const Box& box, int room, std::string_view label,
                                       const TextMeasure& measure);

/** Lengths at 100 % that several parts of the window share. */
inline constexpr int kMargin = 20;        /**< between the content and the frame */
inline constexpr int kButtonGap = 8;      /**< between two buttons */
inline constexpr int kButtonPadding = 16; /**< left and right of a label */
inline constexpr int kBarHeight = 8;

/** Height of a push button. */
[[nodiscard]] int buttonHeight(const TextMeasure& measure, const Scale& scale);

/** Width of a push button that shows this label in full. */
[[nodiscard]] int buttonWidth(std::string_view label, const TextMeasure& measure,
                              const Scale& scale);

/**
 * Widths of push buttons in a row of this width: the usual ones, or narrower ones that still show
 * the labels, or equal shares.
 */
[[nodiscard]] std::vector<int> buttonWidths(const std::vector<std::string>& labels, int room,
                                            const TextMeasure& measure, const Scale& scale);

/** The minimum width of a push button that shows this label in full. */
[[nodiscard]] int leastButtonWidth(std::string_view label, const TextMeasure& measure,
                                   const Scale& scale);

/** A push button, whose label is cut if it does not fit. */
[[nodiscard]] PlacedButton placePushButton(int id, const Box& box, std::string_view label,
                                           const TextMeasure& measure, const Scale& scale);

}  // namespace jsw::window
