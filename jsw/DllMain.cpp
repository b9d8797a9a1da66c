// Called when the library is loaded.

#include "jsw/LibraryPin.h"

#include <windows.h>

/// Pins the library: threads of the view may still run its code after the last job.
// NOLINTNEXTLINE(readability-identifier-naming): the name that the loader calls
extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void* /*reserved*/) {
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    HMODULE pinned = nullptr;
    if (GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                           reinterpret_cast<const char*>(library), &pinned) == FALSE)
        jsw::pinError = GetLastError();
    return TRUE;
}
