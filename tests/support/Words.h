#pragma once

#include <sstream>
#include <string>
#include <vector>

namespace jsw::test {

/// The parts of a text between its blanks, for readable lists.
inline std::vector<std::string> words(const std::string& text) {
    std::istringstream input(text);
    std::vector<std::string> parts;
    for (std::string part; input >> part;) parts.push_back(part);
    return parts;
}

}  // namespace jsw::test
