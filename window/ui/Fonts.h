/**
 * @file Fonts.h
 * The fonts of a window, and text measurement.
 */
#pragma once

#include "window/ui/Gdi.h"
#include "window/ui/TextFit.h"

#include <array>

namespace jsw::window {

/** In the system's face, for a screen of this many dots per inch. */
class Fonts {
  public:
    explicit Fonts(int dotsPerInch);
    [[nodiscard]] HFONT get(Font font) const {
        return fonts_[static_cast<std::size_t>(font)].get();
    }

  private:
    std::array<GdiObject<HFONT>, 4> fonts_;
};

/** Measures text with the fonts. Not thread-safe. */
class FontMeasure : public TextMeasure {
  public:
    explicit FontMeasure(const Fonts& fonts) : fonts_(fonts), dc_(nullptr) {}
    [[nodiscard]] int width(std::string_view text, Font font) const override;
    [[nodiscard]] int lineHeight(Font font) const override;

  private:
    const Fonts& fonts_;
    MemoryDc dc_;
};

}  // namespace jsw::window
