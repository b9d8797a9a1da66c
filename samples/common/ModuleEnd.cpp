/**
 * @file ModuleEnd.cpp
 * A part of every sample module: gives back what MinGW's C++ run-time library would leave behind
 * each time a module is freed.
 */
#ifdef __GNUC__

#include <windows.h>

#include <atomic>
#include <cxxabi.h>
#include <exception>
#include <new>
#include <utility>

namespace __gnu_cxx {
void __freeres();  // NOLINT(bugprone-reserved-identifier): the name of the run-time library
}

namespace {

/** What the run-time library notes of a thread's exceptions. */
struct Notes {
    void* caught = nullptr;
    unsigned uncaught = 0;
    Notes* next = nullptr; /**< another thread's; the run-time library does not know of it */
};

/**
 * The notes of the threads that have raised an exception in this module. Where the run-time library
 * would keep them, each module takes an index of thread-local storage and never gives it back.
 */
class ThreadNotes {
  public:
    ThreadNotes() : index_(TlsAlloc()) {}
    ~ThreadNotes() {
        TlsFree(index_);
        Notes* next = first_;
        while (next != nullptr) delete std::exchange(next, next->next);
    }
    ThreadNotes(const ThreadNotes&) = delete;
    ThreadNotes& operator=(const ThreadNotes&) = delete;

    Notes* ofThisThread() {
        auto* notes = static_cast<Notes*>(TlsGetValue(index_));
        return notes != nullptr ? notes : add();
    }

  private:
    Notes* add() {
        auto* notes = new (std::nothrow) Notes;
        if (notes == nullptr || TlsSetValue(index_, notes) == FALSE) std::terminate();
        notes->next = first_;
        while (!first_.compare_exchange_weak(notes->next, notes)) {
        }
        return notes;
    }

    const DWORD index_;
    std::atomic<Notes*> first_ = nullptr;
};

/** Made before the other static objects, which may raise, and destroyed after them. */
__attribute__((init_priority(101))) ThreadNotes threadNotes;

/** The run-time library keeps some 70 KB for exceptions in a shortage of memory. */
struct RuntimeReserve {
    ~RuntimeReserve() { __gnu_cxx::__freeres(); }
} reserve;

}  // namespace

namespace __cxxabiv1 {

// The run-time library's own functions: linked in place of those in its archive.
extern "C" __cxa_eh_globals* __cxa_get_globals() noexcept {
    return reinterpret_cast<__cxa_eh_globals*>(threadNotes.ofThisThread());
}

extern "C" __cxa_eh_globals* __cxa_get_globals_fast() noexcept {
    return __cxa_get_globals();
}

}  // namespace __cxxabiv1

#endif
