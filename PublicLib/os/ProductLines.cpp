#include "PublicLib/os/ProductLines.h"

#include "PublicLib/text/Text.h"
#include <jsw/product_lines.h>

#include <algorithm>
#include <array>

namespace jsw {

namespace {

#define JSW_ROW(prefix, key, nonInkjet, manufacturer) {prefix, key, nonInkjet, manufacturer},
constexpr std::array<ProductLine, 16> kProductLines{{JSW_PRODUCT_LINES(JSW_ROW)}};
#undef JSW_ROW

constexpr std::size_t kPrefixLength = 2;

static_assert(std::all_of(kProductLines.begin(), kProductLines.end(), [](const ProductLine& line) {
    return line.prefix.size() == kPrefixLength && line.key.size() <= 32 &&
           line.manufacturer.size() <= 19;
}));

}  // namespace

std::span<const ProductLine> productLines() {
    return kProductLines;
}

const ProductLine* findProductLine(std::string_view localId) {
    const std::string_view prefix = localId.substr(0, kPrefixLength);
    for (const ProductLine& line : kProductLines) {
        if (equalsIgnoringCase(line.prefix, prefix)) return &line;
    }
    return nullptr;
}

bool isNonInkjetLine(std::string_view localId) {
    const std::string_view prefix = localId.substr(0, kPrefixLength);
    return std::any_of(kProductLines.begin(), kProductLines.end(), [&](const ProductLine& row) {
        return row.prefix == prefix && row.nonInkjet != 0;
    });
}

}  // namespace jsw
