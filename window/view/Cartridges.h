/**
 * @file Cartridges.h
 * Names and colours of ink cartridges, from the file "cartridges.txt" in the data folder (see
 * docs/billboard-format.md). No Windows in it.
 */
#pragma once

#include "common/LanguageFile.h"
#include "window/ui/Colours.h"

#include <cstdint>
#include <optional>
#include <string>

namespace jsw::window {

/** What the content knows of a cartridge. */
struct CartridgeName {
    std::string name; /**< UTF-8; empty: none */
    std::optional<Colour> colour;
    bool operator==(const CartridgeName&) const = default;
};

/** The names of all cartridges. */
class Cartridges {
  public:
    Cartridges() = default;
    /** Takes the sections [parts] and [slots]; a malformed file has no names. */
    explicit Cartridges(const common::LanguageFile& file);

    /** What is wrong with the file; empty: nothing. */
    [[nodiscard]] const std::string& problem() const { return problem_; }
    /** Of the cartridge with this part number (0: unknown) in this slot, counted from 1. */
    [[nodiscard]] CartridgeName find(std::uint32_t partNumber, std::size_t slot) const;

  private:
    void take(const std::string& section, const common::TextSection& texts);

    std::map<std::string, CartridgeName, std::less<>> names_; /**< "parts 36", "slots 1" */
    std::string problem_;
};

}  // namespace jsw::window
