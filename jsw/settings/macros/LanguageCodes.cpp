#include "jsw/settings/macros/LanguageCodes.h"

#include <algorithm>
#include <array>

namespace jsw {

namespace {

constexpr std::uint16_t kPrimaryLanguageMask = 0x03FF;
constexpr std::uint16_t kSpanish = 0x000A;
constexpr std::uint16_t kSpanishModernSort = 0x0C0A;

struct Language {
    std::uint32_t code;
    std::array<std::uint16_t, 16> ids;  // up to the first 0
};

/// Spanish (4 and 28) is recognised by its primary language instead; 11 is unused.
constexpr Language kLanguages[] = {
    {1, {0x040C, 0x080C, 0x0C0C, 0x100C, 0x140C}},
    {2, {0x0407, 0x0807, 0x0C07, 0x1007, 0x1407}},
    {3, {0x0410, 0x0810}},
    {5, {0x0406}},
    {6, {0x0414}},
    {7, {0x0413, 0x0813}},
    {8, {0x041D, 0x081D}},
    {9, {0x040B}},
    {10, {0x0816}},
    {12, {0x0411}},
    {13, {0x0804, 0x1004}},
    {14, {0x0404, 0x0C04, 0x1404}},
    {15, {0x0405}},
    {16, {0x0408}},
    {17, {0x040E}},
    {18, {0x040F}},
    {19, {0x0412, 0x0812}},
    {20, {0x0415}},
    {21, {0x0416}},
    {22, {0x0419}},
    {23, {0x041B}},
    {24, {0x041F}},
    {25, {0x042A}},
    {26, {0x0422}},
    {27, {0x041E}},
    {29, {0x0424}},
    {30, {0x081A}},
    {31, {0x0C1A}},
    {32, {0x0418}},
    {33, {0x0427}},
    {34, {0x0426}},
    {35, {0x0421}},
    {36, {0x0438}},
    {37, {0x0425}},
    {38, {0x041A}},
    {39, {0x0403}},
    {40, {0x0402}},
    {41, {0x0423}},
    {42, {0x042D}},
    {43, {0x041C}},
    {44, {0x0436}},
    {45, {0x0814}},
    {46, {0x040D}},
    {47,
     {0x0401, 0x0801, 0x0C01, 0x1001, 0x1401, 0x1801, 0x1C01, 0x2001, 0x2401, 0x2801, 0x2C01,
      0x3001, 0x3401, 0x3801, 0x3C01, 0x4001}},
    {48, {0x042F}},
    {49, {0x043E}},
};

}  // namespace

std::uint32_t languageCode(std::uint16_t languageId) {
    if (languageId == 0) return 0;  // 0 also fills the rows
    if ((languageId & kPrimaryLanguageMask) == kSpanish) {
        return languageId == kSpanishModernSort ? 28 : 4;
    }
    for (const Language& language : kLanguages) {
        if (std::ranges::find(language.ids, languageId) != language.ids.end()) {
            return language.code;
        }
    }
    return 0;
}

}  // namespace jsw
