#pragma once

#include <windows.h>

#include <string>

namespace jsw {

/// Full file name of a loaded module (null: the process's executable), whatever its length; empty
/// when Windows does not give it, with GetLastError() set.
std::string moduleFileName(HMODULE module);

/// The printer-driver directory of the local machine and current environment; empty on failure.
std::string printerDriverDirectory();

/// A special folder of the shell (CSIDL_…) without a trailing backslash; empty on failure.
std::string specialFolder(int csidl);

/// Windows' system folder; empty on failure.
std::string systemFolder();

}  // namespace jsw
