#pragma once

#include <windows.h>

namespace jsw::ui {

/**
 * A function that newer systems have and the oldest that is served has not, by its name in a loaded
 * library; null where there is none. That it is of the type Function is the caller's promise.
 */
template <class Function>
Function* systemFunction(HMODULE module, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace jsw::ui
