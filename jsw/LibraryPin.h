#pragma once

#include <windows.h>

namespace jsw {

/// Why the library could not be pinned when it was loaded; ERROR_SUCCESS when it stays loaded until
/// the process ends. Each job then says so in the log.
inline DWORD pinError = ERROR_SUCCESS;

}  // namespace jsw
