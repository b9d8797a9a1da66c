#pragma once

#include "PublicLib/calls/SehFrame.h"
#include "PublicLib/logging/Guard.h"

#include <optional>

namespace jsw {

class ForeignCall;

/// A guard at each entry of the library: around an exported function, a callback that a module
/// calls, and the run of a library thread. The library keeps what it knows about a thread in the
/// guards on that thread's stack; thread-local storage points to the innermost one.
///
/// A C++ exception of the library is caught and logged here.
///
/// A structured exception of foreign code, such as an access violation, is the host's to handle, or
/// ends the process. If the host handles it, the library's frames must not be skipped: their locks
/// would stay held. So callForeign() catches the exception at the call of the foreign code, the
/// library unwinds normally without calling foreign code again, and the guard re-raises the
/// exception for the host.
class EntryGuard final : public SehFrame {
  public:
    /// Runs work inside a guard. Does not return if it re-raises an exception.
    template <class Work>
    static void run(const LoggerComponent& component, const char* where, const Work& work) {
        struct Entry {
            const LoggerComponent& component;
            const char* where;
            const Work& work;

            static void run(void* argument) {
                const auto& entry = *static_cast<const Entry*>(argument);
                try {
                    entry.work();
                } catch (...) {
                    reportException(entry.component, entry.where);
                }
            }
        } entry{component, where, work};
        EntryGuard guard;
        jswRunInSehFrame(guard, &Entry::run, &entry);
        guard.leave();
        guard.reraiseToHost();
    }

    EntryGuard(const EntryGuard&) = delete;
    EntryGuard& operator=(const EntryGuard&) = delete;

  private:
    friend class ForeignCall;
    friend class NoWaiting;

    EntryGuard();

    /// The innermost guard of this thread; null outside the library.
    static EntryGuard* current();

    /// Records an exception of foreign code. False if it is already known from an inner call, or
    /// from an inner guard that re-raises it.
    [[nodiscard]] bool note(const EXCEPTION_RECORD& exception);
    bool catchOnUnwind() override;
    void leave();
    void reraiseToHost() const;

    EntryGuard* const outer_;
    bool mustNotWait_;                           // see NoWaiting
    std::optional<EXCEPTION_RECORD> exception_;  // the last one of foreign code
    bool mustReraise_ = false;                   // exception_, after the library has unwound
};

}  // namespace jsw
