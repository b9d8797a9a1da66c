/**
 * @file Text.h
 * Converts between UTF-8, the encoding of this code, and those of Windows. Never fails: invalid
 * characters become a replacement character.
 */
#pragma once

#include <string>
#include <string_view>

namespace jsw::ui {

[[nodiscard]] std::wstring wide(std::string_view utf8);
[[nodiscard]] std::string utf8(std::wstring_view text);

/** From the system's ANSI code page, the encoding of hosts and their files. */
[[nodiscard]] std::string utf8FromAnsi(std::string_view text);

/** Whether these bytes are valid UTF-8. */
[[nodiscard]] bool isUtf8(std::string_view bytes);

}  // namespace jsw::ui
