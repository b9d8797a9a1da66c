#pragma once

#include <cstdint>

namespace jsw {

/// The web pages' number for a Windows language id; 0, English, for every language without one.
std::uint32_t languageCode(std::uint16_t languageId);

}  // namespace jsw
