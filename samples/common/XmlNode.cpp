#include "samples/common/XmlNode.h"

#include <algorithm>

namespace jsw::sample {

namespace {

char lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

}  // namespace

std::string XmlNode::attribute(std::string_view attributeName, std::string_view fallback) const {
    const auto found = attributes.find(attributeName);
    return found == attributes.end() ? std::string(fallback) : found->second;
}

bool XmlNode::flag(std::string_view attributeName) const {
    const std::string value = attribute(attributeName);
    return value == "1" || equalsIgnoringCase(value, "true") || equalsIgnoringCase(value, "yes");
}

bool equalsIgnoringCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lower(a) == lower(b); });
}

std::string toLower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

std::string trim(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

}  // namespace jsw::sample
