#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jsw {

/// What the part before the ":" of a typed value says.
enum class IniValueType { unknown = 0, string = 1, dword = 2 };

/// A typed value ("string:some text", "dword:10") taken apart.
struct IniTypedValue {
    bool hasType = false;  ///< something stands before a ":"
    IniValueType type = IniValueType::unknown;
    std::string text;  ///< everything after the first ":"
};

/// Takes a typed value apart; the type is compared exactly, letter case included.
IniTypedValue splitTypedValue(std::string_view value);

/// The number at the front of a text, 0 when there is none; one that does not fit 32 bits with a
/// sign becomes the largest or smallest that does.
std::uint32_t leadingNumber(const std::string& text);

/// Lets a profile function of Windows fill a buffer: fetch(buffer, size). Answers as much of the
/// buffer as the function reports to have filled.
template <class Fetch>
std::string_view filledPart(char* buffer, std::uint32_t size, const Fetch& fetch) {
    if (size == 0) return {};
    buffer[0] = '\0';
    return {buffer, std::min<std::uint32_t>(fetch(buffer, size), size)};
}

/// The names of a list in which each ends with a null character; an empty one ends the list, and
/// so does the end of the buffer.
std::vector<std::string> splitNameList(std::string_view list);

}  // namespace jsw
