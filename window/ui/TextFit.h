/**
 * @file TextFit.h
 * Fits texts (UTF-8) into a box: wrapped, or cut with an ellipsis. Needs no Windows: the caller
 * measures texts.
 */
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace jsw::window {

/** The fonts of a window, smallest first. */
enum class Font { normal, bold, heading, title };

/** Measures text in pixels. */
class TextMeasure {
  public:
    virtual ~TextMeasure() = default;
    /** Width of the text in one line. */
    [[nodiscard]] virtual int width(std::string_view text, Font font) const = 0;
    /** Height of a line. */
    [[nodiscard]] virtual int lineHeight(Font font) const = 0;
};

/** The end of a text that was cut. */
inline constexpr std::string_view kEllipsis = "\xE2\x80\xA6";

/**
 * The text if it fits this width, otherwise as much of it as fits with an ellipsis, or the ellipsis
 * alone. Never splits a character. Uses at most the first 2,000 bytes.
 */
[[nodiscard]] std::string cutToWidth(std::string_view text, Font font, int width,
                                     const TextMeasure& measure);

/** Lines of a wrapped text, and whether some of it was omitted. */
struct WrappedText {
    std::vector<std::string> lines;
    bool cut = false;
};

/**
 * Wraps the text at blanks into at most this many lines; the last one ends with an ellipsis if
 * there is more. A word wider than a line is broken.
 */
[[nodiscard]] WrappedText wrapToWidth(std::string_view text, Font font, int width, int mostLines,
                                      const TextMeasure& measure);

/** The label without the marks of its access key: "&Next" is "Next", "A && B" is "A & B". */
[[nodiscard]] std::string withoutAccessKey(std::string_view label);

/** The text as a label that shows every "&". */
[[nodiscard]] std::string asLabel(std::string_view text);

/** The byte position, moved back to the beginning of a character. */
[[nodiscard]] std::size_t characterStart(std::string_view text, std::size_t position);

/** Whether the first letter with a direction belongs to a right-to-left script. */
[[nodiscard]] bool readsRightToLeft(std::string_view text);

}  // namespace jsw::window
