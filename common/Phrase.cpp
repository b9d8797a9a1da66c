#include "common/Phrase.h"

namespace jsw::common {

std::string fillIn(std::string_view pattern, std::initializer_list<std::string_view> values) {
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool isPlace = pattern[i] == '{' && i + 2 < pattern.size() && pattern[i + 2] == '}' &&
                             pattern[i + 1] >= '0' &&
                             static_cast<std::size_t>(pattern[i + 1] - '0') < values.size();
        if (isPlace) {
            text += values.begin()[pattern[i + 1] - '0'];
            i += 2;
        } else {
            text += pattern[i];
        }
    }
    return text;
}

std::string grouped(std::int64_t number, std::string_view separator) {
    std::string digits = std::to_string(number);
    constexpr std::size_t kUngrouped = 4;
    const std::size_t start = number < 0 ? 1 : 0;
    if (digits.size() - start <= kUngrouped) return digits;
    for (std::size_t place = digits.size() - 3; place > start; place -= 3) {
        digits.insert(place, separator);
        if (place < start + 3) break;
    }
    return digits;
}

}  // namespace jsw::common
