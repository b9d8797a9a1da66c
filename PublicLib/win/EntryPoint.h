#pragma once

#include <windows.h>

namespace jsw {

/// The function that a loaded library exports under this name; null, with GetLastError() set, if
/// there is none. The function type must be the export's: it is not checked.
template <class Function>
[[nodiscard]] Function* findEntryPoint(HMODULE module, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace jsw
