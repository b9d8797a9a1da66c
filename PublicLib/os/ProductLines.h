#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace jsw {

/// One product line of the printer family that this library serves.
struct ProductLine {
    std::string_view prefix;        ///< first two characters of its host programs' names
    std::string_view key;           ///< registry key below "Software\", up to 32 characters
    std::uint32_t nonInkjet;        ///< 1 for laser and scanner lines, 0 for inkjet lines
    std::string_view manufacturer;  ///< display name, up to 19 characters; empty for generic lines
};

/// All lines, in the order in which they are searched.
std::span<const ProductLine> productLines();

/// The first line whose prefix is the first two characters of a local id, ignoring letter case;
/// null if there is none.
const ProductLine* findProductLine(std::string_view localId);

/// True if the line with exactly the local id's first two characters is not an inkjet line.
bool isNonInkjetLine(std::string_view localId);

}  // namespace jsw
