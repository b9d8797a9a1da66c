/**
 * @file Raster.h
 * Anti-aliased shapes in a picture of 32-bit pixels. Needs no Windows.
 */
#pragma once

#include "window/ui/Colours.h"
#include "window/ui/Geometry.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace jsw::window {

/** Rows of pixels (0x00RRGGBB), top row first. */
struct Pixels {
    std::uint32_t* first = nullptr;
    int width = 0;
    int height = 0;
};

constexpr std::uint32_t pixelOf(Colour colour) {
    return static_cast<std::uint32_t>(colour.red) << 16 |
           static_cast<std::uint32_t>(colour.green) << 8 | colour.blue;
}

constexpr Colour colourOf(std::uint32_t pixel) {
    return {static_cast<std::uint8_t>(pixel >> 16), static_cast<std::uint8_t>(pixel >> 8),
            static_cast<std::uint8_t>(pixel)};
}

/**
 * Fills the points for which inside(x, y) holds. A pixel at the edge is a mixture of the present
 * colour and the new one, by the share of the pixel that is inside.
 * @param colour colour(y) is the colour of a row
 */
template <typename Inside, typename RowColour>
void fillShape(const Pixels& pixels, const Box& bounds, Inside&& inside, RowColour&& colour) {
    constexpr int kSteps = 4;
    constexpr int kSamples = kSteps * kSteps;
    for (int y = std::max(bounds.top, 0); y < std::min(bounds.bottom, pixels.height); ++y) {
        std::uint32_t* const row =
            pixels.first + static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels.width);
        for (int x = std::max(bounds.left, 0); x < std::min(bounds.right, pixels.width); ++x) {
            int covered = 0;
            for (int sample = 0; sample < kSamples; ++sample) {
                const int column = sample % kSteps;
                const int line = sample / kSteps;
                const double sampleX = x + (column + 0.5) / kSteps;
                const double sampleY = y + (line + 0.5) / kSteps;
                covered += inside(sampleX, sampleY) ? 1 : 0;
            }
            if (covered == 0) continue;
            row[x] = pixelOf(mixed(colourOf(row[x]), colour(y), covered * 255 / kSamples));
        }
    }
}

/**
 * Makes the picture opaque where inside(x, y) holds and transparent elsewhere, with premultiplied
 * alpha.
 */
template <typename Inside>
void setOpacity(const Pixels& pixels, Inside&& inside) {
    const std::size_t count =
        static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height);
    std::vector<std::uint32_t> opacity(count);
    fillShape({opacity.data(), pixels.width, pixels.height}, {0, 0, pixels.width, pixels.height},
              inside, [](int) {
                  return Colour{0, 0, 255};
              });
    for (std::size_t i = 0; i < count; ++i) {
        const Colour colour = mixed({}, colourOf(pixels.first[i]), static_cast<int>(opacity[i]));
        pixels.first[i] = opacity[i] << 24 | pixelOf(colour);
    }
}

/** A box with round corners. */
class RoundBox {
  public:
    RoundBox(const Box& box, double radius)
        : left_(box.left),
          top_(box.top),
          right_(box.right),
          bottom_(box.bottom),
          radius_(std::min({radius, box.width() / 2.0, box.height() / 2.0})) {}
    [[nodiscard]] bool operator()(double x, double y) const {
        if (x < left_ || x > right_ || y < top_ || y > bottom_) return false;
        const double dx = x - std::clamp(x, left_ + radius_, right_ - radius_);
        const double dy = y - std::clamp(y, top_ + radius_, bottom_ - radius_);
        return dx * dx + dy * dy <= radius_ * radius_;
    }

  private:
    double left_;
    double top_;
    double right_;
    double bottom_;
    double radius_;
};

}  // namespace jsw::window
