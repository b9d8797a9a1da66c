/**
 * @file ModuleEnd.cpp
 * Part of every sample module: releases what MinGW's C++ run-time library would leak each time a
 * module is freed.
 */
#ifdef __GNUC__

#include <windows.h>

#include <atomic>
#include <cxxabi.h>
#include <exception>
#include <new>
#include <utility>

namespace __gnu_cxx {
void __freeres();  // NOLINT(bugprone-reserved-identifier): the run-time library's name
}

namespace {

/** The run-time library's data about a thread's exceptions. */
struct Notes {
    void* caught = nullptr;
    unsigned uncaught = 0;
    Notes* next = nullptr; /**< another thread's; not used by the run-time library */
};

/**
 * The data of the threads that have raised an exception in this module. The run-time library's own
 * place for it costs an index of thread-local storage that is never released.
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

/** Constructed before the other static objects, which may raise, and destroyed after them. */
__attribute__((init_priority(101))) ThreadNotes threadNotes;

/** The run-time library reserves some 70 KB for exceptions when memory is exhausted. */
struct RuntimeReserve {
    ~RuntimeReserve() { __gnu_cxx::__freeres(); }
} reserve;

}  // namespace

namespace __cxxabiv1 {

// Replacements for the run-time library's functions, linked instead of those in its archive.
extern "C" __cxa_eh_globals* __cxa_get_globals() noexcept {
    return reinterpret_cast<__cxa_eh_globals*>(threadNotes.ofThisThread());
}

extern "C" __cxa_eh_globals* __cxa_get_globals_fast() noexcept {
    return __cxa_get_globals();
}

}  // namespace __cxxabiv1

#endif
