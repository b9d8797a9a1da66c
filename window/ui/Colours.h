/**
 * @file Colours.h
 * The colours of a window: light, dark or the system's for high contrast. Needs no Windows.
 */
#pragma once

#include <cstdint>

namespace jsw::window {

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Colour&) const = default;
};

/** The user's choice of appearance. */
enum class Appearance { light, dark, highContrast };

/** Every colour by its use. */
struct Palette {
    Appearance appearance;
    Colour ground; /**< behind the content */
    Colour card;   /**< behind a billboard */
    Colour footer; /**< behind the last row */
    Colour line;   /**< between parts */
    Colour text;
    Colour faintText;
    Colour accent; /**< progress, links, focus */
    Colour ink;
    Colour warning; /**< low ink: bar and text */
    Colour track;   /**< of a bar, behind its filled part */
    Colour badge;   /**< behind a remark */
    Colour badgeText;
    Colour button;
    Colour buttonHot;
    Colour buttonPressed;
    Colour buttonLine;
    Colour disabledText;
};

[[nodiscard]] const Palette& lightPalette();
[[nodiscard]] const Palette& darkPalette();

/** The system's colours for a high contrast palette. */
struct SystemColours {
    Colour window;
    Colour windowText;
    Colour highlight;
    Colour button;
    Colour buttonText;
    Colour greyText;
    Colour link;
};
[[nodiscard]] Palette highContrastPalette(const SystemColours& system);

/** Contrast of two colours, 1 (none) to 21 (black on white). */
[[nodiscard]] double contrast(Colour first, Colour second);

/** A mixture of two colours; share, 0 to 255, is that of the second. */
[[nodiscard]] constexpr Colour mixed(Colour from, Colour to, int share) {
    const auto mix = [share](int first, int second) {
        return static_cast<std::uint8_t>(first + (second - first) * share / 255);
    };
    return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue)};
}

}  // namespace jsw::window
