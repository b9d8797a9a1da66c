#include "window/ui/TextFit.h"

#include <algorithm>
#include <cstdint>

namespace jsw::window {
namespace {

/** No line on a screen is longer. */
constexpr std::size_t kLongestLine = 2000;

bool isInsideCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/** The length in bytes of the longest beginning for which fits() holds; assumes fits(0).
 */
template <typename Fits>
std::size_t longestBeginning(std::string_view text, Fits&& fits) {
    std::size_t good = 0;
    std::size_t bad = text.size() + 1;
    while (bad - good > 1) {
        const std::size_t middle = characterStart(text, good + (bad - good) / 2);
        if (middle <= good) {
            // Only one character is between the two.
            std::size_t next = good + 1;
            while (next < text.size() && isInsideCharacter(text[next])) ++next;
            if (next >= bad || !fits(text.substr(0, next))) break;
            good = next;
        } else if (fits(text.substr(0, middle))) {
            good = middle;
        } else {
            bad = middle;
        }
    }
    return good;
}

std::string_view trimmedEnd(std::string_view text) {
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

/** Cuts the next line off a text that does not fit the width. */
std::string takeLine(std::string_view& text, Font font, int width, const TextMeasure& measure) {
    const std::size_t fitting =
        longestBeginning(text.substr(0, std::min(text.size(), kLongestLine)),
                         [&](std::string_view part) { return measure.width(part, font) <= width; });
    std::size_t end = fitting;
    if (fitting < text.size() && text[fitting] != ' ') {
        const std::size_t blank = text.substr(0, fitting).rfind(' ');
        if (blank != std::string_view::npos && blank > 0) end = blank;
    }
    if (end == 0) {
        // Not even one character fits: take it all the same, or this would never end.
        end = 1;
        while (end < text.size() && isInsideCharacter(text[end])) ++end;
    }
    std::string line(trimmedEnd(text.substr(0, end)));
    text.remove_prefix(end);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return line;
}

std::uint32_t decode(std::string_view text, std::size_t position) {
    const auto byte = static_cast<unsigned char>(text[position]);
    const int following = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : byte >= 0xC0 ? 1 : 0;
    std::uint32_t code = following == 0 ? byte : byte & (0x3FU >> following);
    for (int i = 1; i <= following && position + static_cast<std::size_t>(i) < text.size(); ++i) {
        code = code << 6 |
               (static_cast<unsigned char>(text[position + static_cast<std::size_t>(i)]) & 0x3FU);
    }
    return code;
}

}  // namespace

std::size_t characterStart(std::string_view text, std::size_t position) {
    position = std::min(position, text.size());
    while (position > 0 && position < text.size() && isInsideCharacter(text[position])) --position;
    return position;
}

std::string cutToWidth(std::string_view text, Font font, int width, const TextMeasure& measure) {
    const bool tooLong = text.size() > kLongestLine;
    if (tooLong) text = text.substr(0, characterStart(text, kLongestLine));
    if (!tooLong && measure.width(text, font) <= width) return std::string(text);
    const auto withEllipsis = [](std::string_view part) {
        return std::string(trimmedEnd(part)).append(kEllipsis);
    };
    return withEllipsis(text.substr(0, longestBeginning(text, [&](std::string_view part) {
                                        return measure.width(withEllipsis(part), font) <= width;
                                    })));
}

WrappedText wrapToWidth(std::string_view text, Font font, int width, int mostLines,
                        const TextMeasure& measure) {
    WrappedText wrapped;
    while (!text.empty()) {
        if (static_cast<int>(wrapped.lines.size()) == mostLines) {
            wrapped.cut = true;
            break;
        }
        const bool isLast = static_cast<int>(wrapped.lines.size()) + 1 == mostLines;
        if (text.size() <= kLongestLine && measure.width(text, font) <= width) {
            wrapped.lines.emplace_back(text);
            break;
        }
        if (isLast) {
            wrapped.lines.push_back(cutToWidth(text, font, width, measure));
            wrapped.cut = true;
            break;
        }
        wrapped.lines.push_back(takeLine(text, font, width, measure));
    }
    return wrapped;
}

std::string withoutAccessKey(std::string_view label) {
    std::string plain;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (label[i] == '&' && ++i == label.size()) break;
        plain += label[i];
    }
    return plain;
}

std::string asLabel(std::string_view text) {
    std::string label;
    for (const char letter : text) label.append(letter == '&' ? 2 : 1, letter);
    return label;
}

bool readsRightToLeft(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isInsideCharacter(text[i])) continue;
        const std::uint32_t code = decode(text, i);
        const bool hebrewOrArabic = (code >= 0x590 && code <= 0x8FF) ||
                                    (code >= 0xFB1D && code <= 0xFDFF) ||
                                    (code >= 0xFE70 && code <= 0xFEFF);
        if (hebrewOrArabic) return true;
        const bool latin = (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z');
        if (latin || code >= 0xC0) return false;
    }
    return false;
}

}  // namespace jsw::window
