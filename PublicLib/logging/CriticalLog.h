#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace jsw {

/// The file name of the critical log: fileBase + ".log", or, when it is empty, the first four
/// characters of the module's lower-cased file name + ".log" ("jsw..log" for jsw.dll).
std::string criticalLogFileName(std::string_view fileBase, std::string_view moduleFileName);

/// Writes one line to a log of its own in the root of the Windows drive, without asking any
/// switch; for places where the process's log may be gone, such as destructors. The first call
/// decides file and component for the whole process.
///
/// @param module  names the file when fileBase is empty; null: the process's executable
/// Throws Win32Exception when the module's file name is needed and cannot be had.
void CriticalLog(const std::string& fileBase, const std::string& componentName,
                 const std::string& message, HMODULE module);

}  // namespace jsw
