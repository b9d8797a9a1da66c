#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace jsw {

/// Appends one part of a message: text as it is (a null pointer counts as empty), a truth value as
/// "true" or "false", a number in decimal.
inline void appendPart(std::string& text, std::string_view part) {
    text.append(part);
}
inline void appendPart(std::string& text, const char* part) {
    if (part != nullptr) text.append(part);
}
template <std::integral Number>
void appendPart(std::string& text, Number number) {
    if constexpr (std::same_as<Number, bool>) {
        text.append(number ? "true" : "false");
    } else {
        text.append(std::to_string(number));
    }
}

/// A driver's 32-bit value as the log and the modules use it.
constexpr std::int32_t asSigned(std::uint32_t value) {
    return static_cast<std::int32_t>(value);
}

/// Joins the parts of a message: concat("bbId=", id, ", count=", 3).
template <class... Parts>
std::string concat(const Parts&... parts) {
    std::string text;
    (appendPart(text, parts), ...);
    return text;
}

/// The text in lower case, by the C library's tolower.
std::string toLower(std::string_view text);

/// Compares two texts in lower case.
bool equalsIgnoringCase(std::string_view left, std::string_view right);

}  // namespace jsw
