#include "window/view/Cartridges.h"

#include "common/Letters.h"

#include <charconv>
#include <system_error>

namespace jsw::window {
namespace {

/** "RRGGBB", two hexadecimal digits each. */
std::optional<Colour> readColour(std::string_view digits) {
    std::uint32_t value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [parsed, error] = std::from_chars(digits.data(), end, value, 16);
    if (digits.size() != 6 || error != std::errc() || parsed != end) return std::nullopt;
    return Colour{static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 8),
                  static_cast<std::uint8_t>(value)};
}

}  // namespace

Cartridges::Cartridges(const common::LanguageFile& file) : problem_(file.problem) {
    for (const auto& [section, texts] : file.sections) take(section, texts);
    if (!problem_.empty()) names_.clear();
}

void Cartridges::take(const std::string& section, const common::TextSection& texts) {
    for (const auto& [number, text] : texts) {
        std::string_view rest = text;
        std::string key = section;
        key.append(" ").append(number);
        CartridgeName& entry = names_[key];
        entry.name = common::cutUpTo(rest, '|');
        entry.colour = readColour(common::trim(rest));
        if (!rest.empty() && !entry.colour) {
            problem_ = key + ": the colour is not of the form RRGGBB";
        }
    }
}

CartridgeName Cartridges::find(std::uint32_t partNumber, std::size_t slot) const {
    auto found = names_.find("parts " + std::to_string(partNumber));
    if (partNumber == 0 || found == names_.end()) {
        found = names_.find("slots " + std::to_string(slot));
    }
    return found == names_.end() ? CartridgeName() : found->second;
}

}  // namespace jsw::window
