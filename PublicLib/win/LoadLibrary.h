#pragma once

#include "PublicLib/win/Handles.h"

#include <string>

namespace jsw {

/// Loads a library; empty, with GetLastError() set, when that fails. However it fails, the system
/// shows no message box of its own in the middle of a print job (from Windows 7 on).
[[nodiscard]] ModuleHandle loadLibraryQuietly(const std::string& path);

/// The same for a library of Windows itself, such as "userenv.dll", from the system folder and
/// nowhere else.
/// @param path  receives the full path that was tried
[[nodiscard]] ModuleHandle loadSystemLibrary(const std::string& fileName,
                                             std::string* path = nullptr);

}  // namespace jsw
