#pragma once

#include "window/ui/Geometry.h"
#include "window/ui/TextFit.h"

#include <string_view>

namespace jsw::test {

/// A proportional font at the scale of a screen.
class EvenMeasure : public jsw::window::TextMeasure {
  public:
    explicit EvenMeasure(jsw::window::Scale scale) : scale_(scale) {}
    [[nodiscard]] int width(std::string_view text, jsw::window::Font font) const override {
        int units = 0;
        for (const char byte : text) {
            const auto value = static_cast<unsigned char>(byte);
            if ((value & 0xC0U) == 0x80U) continue;  // one width per character
            units += byte == ' ' || byte == 'i' || byte == 'l' ? 3 : byte == 'W' ? 11 : 7;
        }
        return scale_(units * size(font) / 12);
    }
    [[nodiscard]] int lineHeight(jsw::window::Font font) const override {
        return scale_(size(font) * 4 / 3);
    }

  private:
    static int size(jsw::window::Font font) {
        switch (font) {
            case jsw::window::Font::title:
                return 19;
            case jsw::window::Font::heading:
                return 17;
            case jsw::window::Font::bold:
                return 13;
            case jsw::window::Font::normal:
                break;
        }
        return 12;
    }
    jsw::window::Scale scale_;
};

}  // namespace jsw::test
