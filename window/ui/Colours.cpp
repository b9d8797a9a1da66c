#include "window/ui/Colours.h"

#include <algorithm>
#include <cmath>

namespace jsw::window {
namespace {

constexpr Palette kLight{
    .appearance = Appearance::light,
    .ground = {251, 251, 252},
    .card = {255, 255, 255},
    .footer = {240, 242, 245},
    .line = {221, 225, 230},
    .text = {27, 31, 36},
    .faintText = {87, 96, 106},
    .accent = {0, 95, 184},
    .ink = {45, 125, 210},
    .warning = {196, 43, 28},
    .track = {228, 232, 237},
    .badge = {255, 236, 179},
    .badgeText = {92, 58, 0},
    .button = {255, 255, 255},
    .buttonHot = {245, 247, 250},
    .buttonPressed = {235, 238, 242},
    .buttonLine = {200, 206, 213},
    .disabledText = {150, 157, 165},
};

constexpr Palette kDark{
    .appearance = Appearance::dark,
    .ground = {32, 33, 36},
    .card = {43, 45, 49},
    .footer = {26, 27, 30},
    .line = {60, 64, 70},
    .text = {240, 242, 245},
    .faintText = {172, 180, 190},
    .accent = {96, 178, 255},
    .ink = {86, 160, 232},
    .warning = {255, 132, 112},
    .track = {66, 70, 77},
    .badge = {84, 66, 20},
    .badgeText = {255, 226, 150},
    .button = {58, 61, 67},
    .buttonHot = {68, 72, 79},
    .buttonPressed = {50, 53, 58},
    .buttonLine = {84, 89, 97},
    .disabledText = {122, 128, 137},
};

double luminance(Colour colour) {
    const auto linear = [](std::uint8_t value) {
        const double part = value / 255.0;
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) +
           0.0722 * linear(colour.blue);
}

}  // namespace

const Palette& lightPalette() {
    return kLight;
}

const Palette& darkPalette() {
    return kDark;
}

Palette highContrastPalette(const SystemColours& system) {
    return {
        .appearance = Appearance::highContrast,
        .ground = system.window,
        .card = system.window,
        .footer = system.window,
        .line = system.windowText,
        .text = system.windowText,
        .faintText = system.windowText,
        .accent = system.link,
        .ink = system.windowText,
        .warning = system.windowText,
        .track = system.window,
        .badge = system.window,
        .badgeText = system.windowText,
        .button = system.button,
        .buttonHot = system.button,
        .buttonPressed = system.button,
        .buttonLine = system.buttonText,
        .disabledText = system.greyText,
    };
}

double contrast(Colour first, Colour second) {
    const auto [dark, light] = std::minmax({luminance(first), luminance(second)});
    return (light + 0.05) / (dark + 0.05);
}

}  // namespace jsw::window
