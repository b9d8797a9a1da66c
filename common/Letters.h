/**
 * @file Letters.h
 * Texts letter by letter. Only the letters of ASCII have two cases here. No Windows in it.
 */
#pragma once

#include <string>
#include <string_view>

namespace jsw::common {

[[nodiscard]] std::string toLower(std::string_view text);
[[nodiscard]] bool equalsIgnoringCase(std::string_view left, std::string_view right);

/** The text without blanks and ends of lines around it. */
[[nodiscard]] std::string_view trim(std::string_view text);

/** Cuts the text up to a separator off the front, trimmed; all of it when there is no separator. */
[[nodiscard]] std::string_view cutUpTo(std::string_view& text, char separator);

}  // namespace jsw::common
