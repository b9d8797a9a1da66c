#include "jsw/settings/macros/OsCodes.h"

namespace jsw {

namespace {

struct OsCodes {
    OsClass os;
    OsCode for32Bit;
    OsCode for64Bit;
};

constexpr OsCodes kOsCodes[] = {
    {OsClass::xp, {"5", ""}, {"5", ""}},
    {OsClass::server2003, {"5", ""}, {"9", "is 64 bit XP"}},
    {OsClass::vista, {"10", ""}, {"11", "is 64 bit Vista"}},
};
constexpr OsCode kOtherSystem{"3", ""};

}  // namespace

OsCode osCode(OsClass os, bool is64Bit) {
    for (const OsCodes& codes : kOsCodes) {
        if (codes.os == os) return is64Bit ? codes.for64Bit : codes.for32Bit;
    }
    return kOtherSystem;
}

}  // namespace jsw
