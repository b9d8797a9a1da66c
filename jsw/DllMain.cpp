// What happens when the library is freed.

#include "PublicLib/NeverDestroyed.h"

#include <windows.h>

#ifdef __GNUC__
namespace __gnu_cxx {
void __freeres();  // NOLINT(bugprone-reserved-identifier): the name of the run-time library
}
#endif

namespace {

/// The memory that the C++ run-time library keeps for exceptions in a shortage; it would stay
/// behind each time the library is loaded and freed.
void freeRuntimeReserve() {
#ifdef __GNUC__
    __gnu_cxx::__freeres();
#endif
}

}  // namespace

/// The first job keeps the library loaded until the process ends. So it is freed before (reserved
/// is null then) only while no job has ever run, and nothing of it can be in use.
// NOLINTNEXTLINE(readability-identifier-naming): the name that the loader calls
extern "C" BOOL WINAPI DllMain(HINSTANCE /*library*/, DWORD reason, void* reserved) {
    if (reason == DLL_PROCESS_DETACH && reserved == nullptr) {
        jsw::isLibraryFreed = true;
        freeRuntimeReserve();
    }
    return TRUE;
}
