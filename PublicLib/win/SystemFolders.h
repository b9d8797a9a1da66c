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

/// The folder of installed programs without a trailing backslash; its usual place when the shell
/// does not know it.
std::string programFilesFolder();

/// Windows' system folder; empty on failure.
std::string systemFolder();

}  // namespace jsw
