#include "PublicLib/os/ProductLines.h"

#include "PublicLib/text/Text.h"

#include <algorithm>
#include <array>

namespace jsw {

namespace {

constexpr std::array<ProductLine, 16> kProductLines{{
    {"ql", "QuillonInkjet", 0, "Quillon"},
    {"qp", "QuillonPhoto", 0, "Quillon"},
    {"qm", "QuillonMultifunction", 0, "Quillon"},
    {"qz", "QuillonLaser", 1, "Quillon"},
    {"qs", "QuillonScanner", 1, "Quillon"},
    {"bn", "BrennickInkjet", 0, "Brennick"},
    {"bz", "BrennickLaser", 1, "Brennick"},
    {"cv", "CorvanelInkjet", 0, "Corvanel"},
    {"cz", "CorvanelLaser", 1, "Corvanel"},
    {"dh", "DunhollowInkjet", 0, "Dunhollow"},
    {"ds", "DunhollowScanner", 1, "Dunhollow"},
    {"fm", "FenmereInkjet", 0, "Fenmere"},
    {"fz", "FenmereLaser", 1, "Fenmere"},
    {"tw", "TarnwoldInkjet", 0, "Tarnwold"},
    {"oi", "OemInkjet", 0, ""},
    {"ol", "OemLaser", 1, ""},
}};

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
