#pragma once

#include <windows.h>

namespace jsw {

/// The function that a loaded library exports under this name, or null. Function is a function
/// type; that it fits the export is the caller's promise. Fails with GetLastError() set.
template <class Function>
Function* findEntryPoint(HMODULE module, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace jsw
