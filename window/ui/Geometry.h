/**
 * @file Geometry.h
 * Sizes and boxes in pixels, and their scaling. Needs no Windows.
 */
#pragma once

#include <algorithm>

namespace jsw::window {

/** Dots per inch of a screen at 100 %. */
inline constexpr int kBaseDpi = 96;

/** Converts lengths at 100 % to pixels of a screen. */
class Scale {
  public:
    explicit Scale(int dotsPerInch = kBaseDpi) : dotsPerInch_(std::max(dotsPerInch, 1)) {}
    [[nodiscard]] int operator()(int length) const {
        return (length * dotsPerInch_ + kBaseDpi / 2) / kBaseDpi;
    }
    /** The inverse. */
    [[nodiscard]] int unscaled(int pixels) const {
        return (pixels * kBaseDpi + dotsPerInch_ / 2) / dotsPerInch_;
    }
    [[nodiscard]] int dotsPerInch() const { return dotsPerInch_; }

  private:
    int dotsPerInch_;
};

struct Size {
    int width = 0;
    int height = 0;
    bool operator==(const Size&) const = default;
};

/** A rectangle; right and bottom are the first pixels outside. */
struct Box {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    [[nodiscard]] int width() const { return right - left; }
    [[nodiscard]] int height() const { return bottom - top; }
    [[nodiscard]] bool empty() const { return right <= left || bottom <= top; }
    [[nodiscard]] Box inset(int x, int y) const {
        return {left + x, top + y, right - x, bottom - y};
    }
    [[nodiscard]] Box moved(int x, int y) const {
        return {left + x, top + y, right + x, bottom + y};
    }
    /** Empty boxes never overlap. */
    [[nodiscard]] bool overlaps(const Box& other) const {
        return !empty() && !other.empty() && left < other.right && other.left < right &&
               top < other.bottom && other.top < bottom;
    }
    [[nodiscard]] bool contains(const Box& other) const {
        return left <= other.left && top <= other.top && right >= other.right &&
               bottom >= other.bottom;
    }
    /** The part inside the other box; if there is none, an empty box at the other's nearest edge.
     */
    [[nodiscard]] Box clippedTo(const Box& other) const {
        const auto x = [&](int value) {
            return std::max(std::min(value, other.right), other.left);
        };
        const auto y = [&](int value) {
            return std::max(std::min(value, other.bottom), other.top);
        };
        return {x(left), y(top), x(right), y(bottom)};
    }
    bool operator==(const Box&) const = default;
};

}  // namespace jsw::window
