// Where MinGW's C++ run-time library keeps what it notes of a thread's exceptions.

#ifdef __GNUC__

#include "PublicLib/calls/Visit.h"

#include <cxxabi.h>

namespace {

/// What the run-time library itself would take from the heap at the first exception of a thread; it
/// ends the process when there is no memory just then, and takes an index of thread-local storage
/// that stays taken when the library is freed.
struct Globals {
    void* caught;
    unsigned uncaught;
};
static_assert(sizeof(Globals) == jsw::Visit::kRuntimeStateSize);

/// While the library is loaded, by one thread, there is no visit.
Globals outsideVisits{};

}  // namespace

namespace __cxxabiv1 {

// The run-time library's own functions: linked in place of those in its archive.
extern "C" __cxa_eh_globals* __cxa_get_globals() noexcept {
    void* state = jsw::Visit::runtimeState();
    return static_cast<__cxa_eh_globals*>(state != nullptr ? state : &outsideVisits);
}

extern "C" __cxa_eh_globals* __cxa_get_globals_fast() noexcept {
    return __cxa_get_globals();
}

}  // namespace __cxxabiv1

#endif
