#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jsw {

/// The type before the ":" of a typed value.
enum class IniValueType { unknown = 0, string = 1, dword = 2 };

/// The parts of a typed value ("string:some text", "dword:10").
struct IniTypedValue {
    bool hasType = false;  ///< there is text before a ":"
    IniValueType type = IniValueType::unknown;
    std::string text;  ///< everything after the first ":"
};

/// Splits a typed value; letter case matters in the type.
IniTypedValue splitTypedValue(std::string_view value);

/// The number at the front of a text, or 0. A number beyond signed 32 bits becomes the largest or
/// smallest of these.
std::uint32_t leadingNumber(const std::string& text);

/// Lets a profile function of Windows fill a buffer: fetch(buffer, size). Returns the part that the
/// function reports as filled.
template <class Fetch>
std::string_view filledPart(char* buffer, std::uint32_t size, const Fetch& fetch) {
    if (size == 0) return {};
    buffer[0] = '\0';
    return {buffer, std::min<std::uint32_t>(fetch(buffer, size), size)};
}

/// The names of a list of null-terminated texts; an empty text or the end of the buffer ends it.
std::vector<std::string> splitNameList(std::string_view list);

}  // namespace jsw
