/**
 * @file ScaledPicture.h
 * Draws pictures that are partly transparent, at any size. No Windows in it.
 */
#pragma once

#include "window/ui/Geometry.h"
#include "window/ui/Raster.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace jsw::window {

/** Rows of pixels (0xAARRGGBB), from the top down; colours are multiplied by their opacity. */
struct PicturePixels {
    const std::uint32_t* first = nullptr;
    int width = 0;
    int height = 0;
};

/** The average of the picture's pixels in this part, laid over a pixel (0x00RRGGBB). */
[[nodiscard]] inline std::uint32_t laidOver(std::uint32_t below, const PicturePixels& picture,
                                            const Box& part) {
    std::uint32_t sums[4] = {};
    for (int y = part.top; y < part.bottom; ++y) {
        const std::uint32_t* const row =
            picture.first + static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width);
        for (int x = part.left; x < part.right; ++x) {
            for (int i = 0; i < 4; ++i) sums[i] += row[x] >> 8 * i & 0xFF;
        }
    }
    const auto count = static_cast<std::uint32_t>(part.width() * part.height());
    const std::uint32_t through = 255 - sums[3] / count;
    std::uint32_t pixel = 0;
    for (int i = 0; i < 3; ++i) {
        const std::uint32_t shade = sums[i] / count + (below >> 8 * i & 0xFF) * through / 255;
        pixel |= std::min(shade, 255U) << 8 * i;
    }
    return pixel;
}

/** Draws the picture, scaled to this place. */
inline void drawScaled(const Pixels& pixels, const Box& place, const PicturePixels& picture) {
    const Box seen = place.clippedTo({0, 0, pixels.width, pixels.height});
    for (int y = seen.top; y < seen.bottom; ++y) {
        std::uint32_t* const row =
            pixels.first + static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels.width);
        const int top = (y - place.top) * picture.height / place.height();
        const int bottom = (y + 1 - place.top) * picture.height / place.height();
        for (int x = seen.left; x < seen.right; ++x) {
            const int left = (x - place.left) * picture.width / place.width();
            const int right = (x + 1 - place.left) * picture.width / place.width();
            const Box part{left, top, std::max(right, left + 1), std::max(bottom, top + 1)};
            row[x] = laidOver(row[x], picture, part);
        }
    }
}

}  // namespace jsw::window
