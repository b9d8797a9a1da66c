#include "jsw/settings/macros/LanguageCodes.h"

#include <algorithm>
#include <iterator>

namespace jsw {

namespace {

constexpr std::uint16_t kPrimaryLanguageMask = 0x03FF;
constexpr std::uint16_t kSpanish = 0x000A;
constexpr std::uint16_t kSpanishModernSort = 0x0C0A;

struct Language {
    std::uint16_t id;
    std::uint32_t code;
};

/// Without Spanish (4 and 28), which is recognised by its primary language; 11 is unused.
constexpr Language kLanguages[] = {
    {0x0401, 47}, {0x0402, 40}, {0x0403, 39}, {0x0404, 14}, {0x0405, 15}, {0x0406, 5},
    {0x0407, 2},  {0x0408, 16}, {0x040B, 9},  {0x040C, 1},  {0x040D, 46}, {0x040E, 17},
    {0x040F, 18}, {0x0410, 3},  {0x0411, 12}, {0x0412, 19}, {0x0413, 7},  {0x0414, 6},
    {0x0415, 20}, {0x0416, 21}, {0x0418, 32}, {0x0419, 22}, {0x041A, 38}, {0x041B, 23},
    {0x041C, 43}, {0x041D, 8},  {0x041E, 27}, {0x041F, 24}, {0x0421, 35}, {0x0422, 26},
    {0x0423, 41}, {0x0424, 29}, {0x0425, 37}, {0x0426, 34}, {0x0427, 33}, {0x042A, 25},
    {0x042D, 42}, {0x042F, 48}, {0x0436, 44}, {0x0438, 36}, {0x043E, 49}, {0x0801, 47},
    {0x0804, 13}, {0x0807, 2},  {0x080C, 1},  {0x0810, 3},  {0x0812, 19}, {0x0813, 7},
    {0x0814, 45}, {0x0816, 10}, {0x081A, 30}, {0x081D, 8},  {0x0C01, 47}, {0x0C04, 14},
    {0x0C07, 2},  {0x0C0C, 1},  {0x0C1A, 31}, {0x1001, 47}, {0x1004, 13}, {0x1007, 2},
    {0x100C, 1},  {0x1401, 47}, {0x1404, 14}, {0x1407, 2},  {0x140C, 1},  {0x1801, 47},
    {0x1C01, 47}, {0x2001, 47}, {0x2401, 47}, {0x2801, 47}, {0x2C01, 47}, {0x3001, 47},
    {0x3401, 47}, {0x3801, 47}, {0x3C01, 47}, {0x4001, 47}};

}  // namespace

std::uint32_t languageCode(std::uint16_t languageId) {
    if ((languageId & kPrimaryLanguageMask) == kSpanish) {
        return languageId == kSpanishModernSort ? 28 : 4;
    }
    const auto* language = std::ranges::find(kLanguages, languageId, &Language::id);
    return language != std::end(kLanguages) ? language->code : 0;
}

}  // namespace jsw
