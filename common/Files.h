/**
 * @file Files.h
 * Where programs and modules lie, and the beginnings of files. Paths are in the ANSI code page.
 */
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>

namespace jsw::common {

/** The module that this code is linked into. */
[[nodiscard]] HMODULE thisModule();

/** The full path of a module's file; of the program's for null. */
[[nodiscard]] std::string moduleFileName(HMODULE module);

/** Its folder, with the trailing backslash. */
[[nodiscard]] std::string moduleFolder(HMODULE module);

/** The path from the current folder on; as it is when there is none. */
[[nodiscard]] std::string fullPath(const std::string& path);

/** The first bytes of a file, at most this many; nothing when it cannot be read. */
[[nodiscard]] std::optional<std::string> readStart(const std::string& path, std::size_t most);

}  // namespace jsw::common
