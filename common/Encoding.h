/**
 * @file Encoding.h
 * Texts between UTF-8 and the encodings of Windows. What cannot be translated becomes a replacement
 * character; the functions do not fail.
 */
#pragma once

#include <string>
#include <string_view>

namespace jsw::common {

[[nodiscard]] std::wstring wide(std::string_view utf8);
[[nodiscard]] std::string utf8(std::wstring_view text);

/** The same for the system's ANSI code page, in which hosts and their files write. */
[[nodiscard]] std::wstring wideFromAnsi(std::string_view ansi);
[[nodiscard]] std::string ansi(std::wstring_view text);
[[nodiscard]] std::string utf8FromAnsi(std::string_view ansi);

/** Whether these bytes are well-formed UTF-8. */
[[nodiscard]] bool isUtf8(std::string_view bytes);

}  // namespace jsw::common
