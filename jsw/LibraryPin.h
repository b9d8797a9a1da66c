#pragma once

#include <windows.h>

namespace jsw {

/// The error of pinning the library at load; each job logs it. ERROR_SUCCESS: the library stays
/// loaded until the process exits.
inline DWORD pinError = ERROR_SUCCESS;

}  // namespace jsw
