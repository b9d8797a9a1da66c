#pragma once

#include <windows.h>

#include <string>

namespace jsw {

/// Full path of a loaded module (null: the process's executable) of any length; empty, with
/// GetLastError() set, if Windows does not return it.
std::string moduleFileName(HMODULE module);

/// The printer-driver directory of the local machine and current environment; empty on failure.
std::string printerDriverDirectory();

/// A special folder of the shell (CSIDL_…) without a trailing backslash; empty on failure.
std::string specialFolder(int csidl);

/// The folder of installed programs without a trailing backslash; its usual path if the shell does
/// not know it.
std::string programFilesFolder();

/// Windows' system folder; empty on failure.
std::string systemFolder();

}  // namespace jsw
