#pragma once

#include "PublicLib/win/Handles.h"

#include <string>

namespace jsw {

/// Loads a library; empty, with GetLastError() set, when that fails. However it fails, the system
/// shows no message box of its own in the middle of a print job (from Windows 7 on).
ModuleHandle loadLibraryQuietly(const std::string& path);

}  // namespace jsw
