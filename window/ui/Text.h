/**
 * @file Text.h
 * Texts between UTF-8, which this code keeps them in, and the encodings of Windows. What cannot be
 * translated becomes a replacement character; the functions do not fail.
 */
#pragma once

#include <string>
#include <string_view>

namespace jsw::ui {

[[nodiscard]] std::wstring wide(std::string_view utf8);
[[nodiscard]] std::string utf8(std::wstring_view text);

/** From the system's ANSI code page, in which hosts and their files write. */
[[nodiscard]] std::string utf8FromAnsi(std::string_view text);

/** Whether these bytes are well-formed UTF-8. */
[[nodiscard]] bool isUtf8(std::string_view bytes);

}  // namespace jsw::ui
