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

/// How often the part occurs in the text.
inline std::size_t countOf(const std::string& part, const std::string& text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

}  // namespace jsw::test
