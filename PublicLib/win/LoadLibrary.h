#pragma once

#include "PublicLib/win/Handles.h"

#include <string>

namespace jsw {

/// Loads a library; empty, with GetLastError() set, on failure. From Windows 7 on the system shows
/// no message box of its own if it fails.
[[nodiscard]] ModuleHandle loadLibraryQuietly(const std::string& path);

/// The same for a library of Windows, such as "userenv.dll", only from the system folder.
/// @param path  receives the full path that was tried
[[nodiscard]] ModuleHandle loadSystemLibrary(const std::string& fileName,
                                             std::string* path = nullptr);

}  // namespace jsw
