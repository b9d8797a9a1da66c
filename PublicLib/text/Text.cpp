#include "PublicLib/text/Text.h"

#include <algorithm>
#include <cctype>

namespace jsw {

namespace {
char lowered(char letter) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}
}  // namespace

std::string toLower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lowered);
    return result;
}

bool equalsIgnoringCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lowered(a) == lowered(b); });
}

}  // namespace jsw
