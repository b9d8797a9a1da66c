// What happens when the library is freed.

#include "PublicLib/NeverDestroyed.h"

#include <windows.h>

/// The first job keeps the library loaded until the process ends. So it is freed before (reserved
/// is null then) only while no job has ever run, and nothing of it can be in use.
// NOLINTNEXTLINE(readability-identifier-naming): the name that the loader calls
extern "C" BOOL WINAPI DllMain(HINSTANCE /*library*/, DWORD reason, void* reserved) {
    if (reason == DLL_PROCESS_DETACH && reserved == nullptr) {
        jsw::isLibraryFreed = true;
    }
    return TRUE;
}
