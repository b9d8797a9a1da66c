#pragma once

#include "samples/ui/Geometry.h"
#include "samples/ui/TextFit.h"

#include <string_view>

namespace jsw::test {

/// A font whose letters differ in width, as real ones do, at the scale of a screen.
class EvenMeasure : public sampleui::TextMeasure {
  public:
    explicit EvenMeasure(sampleui::Scale scale) : scale_(scale) {}
    [[nodiscard]] int width(std::string_view text, sampleui::Font font) const override {
        int units = 0;
        for (const char byte : text) {
            const auto value = static_cast<unsigned char>(byte);
            if ((value & 0xC0U) == 0x80U) continue;  // one width per character
            units += byte == ' ' || byte == 'i' || byte == 'l' ? 3 : byte == 'W' ? 11 : 7;
        }
        return scale_(units * size(font) / 12);
    }
    [[nodiscard]] int lineHeight(sampleui::Font font) const override {
        return scale_(size(font) * 4 / 3);
    }

  private:
    static int size(sampleui::Font font) {
        switch (font) {
            case sampleui::Font::title:
                return 19;
            case sampleui::Font::heading:
                return 17;
            case sampleui::Font::bold:
                return 13;
            case sampleui::Font::normal:
                break;
        }
        return 12;
    }
    sampleui::Scale scale_;
};

}  // namespace jsw::test
