#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace jsw {

/// The file name of the critical log: fileBase + ".log". If fileBase is empty, the first four
/// characters of the module's file name in lower case + ".log" ("jsw..log" for jsw.dll).
std::string criticalLogFileName(std::string_view fileBase, std::string_view moduleFileName);

/// Writes one line to a separate log in the root of the Windows drive, whatever the switches; for
/// places such as destructors, where the process's log may not exist. The first call decides file
/// and component for the whole process.
///
/// @param module  names the file if fileBase is empty; null: the process's executable
/// Throws Win32Exception if the module's file name is needed but unavailable.
void CriticalLog(const std::string& fileBase, const std::string& componentName,
                 const std::string& message, HMODULE module);

}  // namespace jsw
