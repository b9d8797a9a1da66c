#pragma once

#include <windows.h>

namespace jsw::window {

/**
 * A function that older supported systems lack, by its name in a loaded library; null if there is
 * none. The type Function must be the function's: it is not checked.
 */
template <class Function>
Function* systemFunction(HMODULE module, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace jsw::window
